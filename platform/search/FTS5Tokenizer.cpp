#include "platform/search/FTS5Tokenizer.h"

#include "platform/search/Tokenizer.h"

#include <sqlite3.h>

#include <exception>
#include <memory>
#include <new>

namespace {

using TokenCallback = int (*)(void*, int, const char*, int, int, int);

// FTS5's token callback as a sink; keeps the first result that is no success.
class CallbackSink final : public TokenSink {
public:
    CallbackSink(void* context, TokenCallback callback)
        : m_context(context)
        , m_callback(callback)
    {
    }

    bool token(std::string_view token, std::size_t start, std::size_t end, bool colocated) override
    {
        m_result = m_callback(m_context, colocated ? FTS5_TOKEN_COLOCATED : 0, token.data(),
                              static_cast<int>(token.size()), static_cast<int>(start), static_cast<int>(end));
        return m_result == SQLITE_OK;
    }

    [[nodiscard]] int result() const { return m_result; }

private:
    void* m_context;
    TokenCallback m_callback;
    int m_result = SQLITE_OK;
};

extern "C" int createTokenizer(void* /*context*/, const char** /*arguments*/, int /*count*/,
                               Fts5Tokenizer** result)
{
    auto tokenizer = std::unique_ptr<Tokenizer>(new (std::nothrow) Tokenizer);
    if (!tokenizer)
        return SQLITE_NOMEM;
    *result = reinterpret_cast<Fts5Tokenizer*>(tokenizer.release()); // FTS5 owns it until deleteTokenizer.
    return SQLITE_OK;
}

extern "C" void deleteTokenizer(Fts5Tokenizer* tokenizer)
{
    const std::unique_ptr<Tokenizer> owner(reinterpret_cast<Tokenizer*>(tokenizer));
}

extern "C" int tokenize(Fts5Tokenizer* tokenizer, void* context, int flags, const char* text, int byteCount,
                        TokenCallback callback)
{
    if (!text || byteCount <= 0)
        return SQLITE_OK;
    const auto purpose = flags & FTS5_TOKENIZE_QUERY ? TokenizeFor::Query : TokenizeFor::Document;
    CallbackSink sink(context, callback);
    try {
        (void)reinterpret_cast<Tokenizer*>(tokenizer)->tokenize(
            {text, static_cast<std::size_t>(byteCount)}, purpose, sink); // The sink knows why it stopped.
    } catch (const std::bad_alloc&) {
        return SQLITE_NOMEM;
    } catch (const std::exception&) {
        return SQLITE_ERROR;
    }
    return sink.result();
}

// FTS5 hands its interface out through a query that fills in a pointer.
fts5_api* interfaceOf(sqlite3* database)
{
    sqlite3_stmt* statement = nullptr;
    fts5_api* interface = nullptr;
    if (sqlite3_prepare_v2(database, "SELECT fts5(?1)", -1, &statement, nullptr) != SQLITE_OK)
        return nullptr;
    sqlite3_bind_pointer(statement, 1, &interface, "fts5_api_ptr", nullptr);
    (void)sqlite3_step(statement); // Whether it worked shows in the pointer.
    sqlite3_finalize(statement);
    return interface;
}

} // namespace

int registerFTS5Tokenizer(sqlite3* database)
{
    fts5_api* interface = interfaceOf(database);
    if (!interface)
        return SQLITE_ERROR;
    fts5_tokenizer methods{createTokenizer, deleteTokenizer, tokenize};
    return interface->xCreateTokenizer(interface, kFTS5TokenizerName, nullptr, &methods, nullptr);
}
