// Any bytes are tokenized; tokens are short, well-formed, in order and within the text.

#include "platform/foundation/Unicode.h"
#include "platform/search/Tokenizer.h"

#include <cstdint>
#include <cstdlib>

namespace {

class Checker final : public TokenSink {
public:
    explicit Checker(std::size_t size)
        : m_size(size)
    {
    }

    bool token(std::string_view token, std::size_t start, std::size_t end, bool /*colocated*/) override
    {
        const bool sound = !token.empty() && token.size() <= Tokenizer::kMaximumTokenByteCount + 2
            && isValidUTF8(token) && m_lastStart <= start && start < end && end <= m_size;
        if (!sound)
            std::abort();
        m_lastStart = start;
        return true;
    }

private:
    std::size_t m_size;
    std::size_t m_lastStart = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Tokenizer tokenizer;
    for (const auto purpose : {TokenizeFor::Document, TokenizeFor::Query}) {
        Checker checker(size);
        (void)tokenizer.tokenize({reinterpret_cast<const char*>(data), size}, purpose,
                                 checker); // It never stops it.
    }
    return 0;
}
