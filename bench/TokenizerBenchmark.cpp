// How our tokenizer keeps up with FTS5's own: 2,000 texts of 10 KB inserted in one transaction into a table
// in memory.

#include "bench/SampleText.h"
#include "platform/search/FTS5Tokenizer.h"
#include "platform/search/Tokenizer.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kTextCount = 2000;
constexpr std::size_t kTextByteCount = 10'000;

const std::vector<std::string>& texts()
{
    static const auto instance = [] {
        std::vector<std::string> made;
        for (std::size_t number = 0; number < kTextCount; ++number)
            made.push_back(sampleText(static_cast<std::uint32_t>(number), kTextByteCount));
        return made;
    }();
    return instance;
}

class Counter final : public TokenSink {
public:
    bool token(std::string_view /*token*/, std::size_t /*start*/, std::size_t /*end*/,
               bool /*colocated*/) override
    {
        ++count;
        return true;
    }

    std::size_t count = 0;
};

void tokenizing(benchmark::State& state)
{
    Tokenizer tokenizer;
    for ([[maybe_unused]] auto _ :
         state) { // NOLINT(clang-analyzer-deadcode.DeadStores): what the library asks for
        Counter counter;
        for (const auto& text : texts())
            (void)tokenizer.tokenize(text, TokenizeFor::Document, counter); // The counter never stops it.
        benchmark::DoNotOptimize(counter.count);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kTextCount * kTextByteCount));
}

BENCHMARK(tokenizing)->Unit(benchmark::kMillisecond);

struct Closer {
    void operator()(sqlite3* database) const
    {
        (void)sqlite3_close_v2(database);
    } // In memory: nothing to lose.

    void operator()(sqlite3_stmt* statement) const { (void)sqlite3_finalize(statement); }
};

void require(int code)
{
    if (code != SQLITE_OK && code != SQLITE_DONE)
        throw std::runtime_error(sqlite3_errstr(code));
}

void bulkInsert(benchmark::State& state, const std::string& tokenizer)
{
    (void)texts();
    for ([[maybe_unused]] auto _ :
         state) { // NOLINT(clang-analyzer-deadcode.DeadStores): what the library asks for
        sqlite3* opened = nullptr;
        require(sqlite3_open(":memory:", &opened));
        const std::unique_ptr<sqlite3, Closer> database(opened);
        require(registerFTS5Tokenizer(opened));
        const auto create
            = "CREATE VIRTUAL TABLE t USING fts5(text, content='', tokenize='" + tokenizer + "'); BEGIN";
        require(sqlite3_exec(opened, create.c_str(), nullptr, nullptr, nullptr));
        sqlite3_stmt* prepared = nullptr;
        require(sqlite3_prepare_v2(opened, "INSERT INTO t(text) VALUES(?1)", -1, &prepared, nullptr));
        const std::unique_ptr<sqlite3_stmt, Closer> insert(prepared);
        for (const auto& text : texts()) {
            require(
                sqlite3_bind_text(prepared, 1, text.data(), static_cast<int>(text.size()), SQLITE_STATIC));
            require(sqlite3_step(prepared));
            require(sqlite3_reset(prepared));
        }
        require(sqlite3_exec(opened, "COMMIT", nullptr, nullptr, nullptr));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kTextCount * kTextByteCount));
}

BENCHMARK_CAPTURE(bulkInsert, corvel, std::string("corvel"))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bulkInsert, unicode61, std::string("unicode61"))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bulkInsert, ascii, std::string("ascii"))->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
