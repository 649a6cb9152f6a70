#include "platform/search/DictionaryBreaker.h"

#include <unicode/brkiter.h>
#include <unicode/utext.h>

#include <stdexcept>

namespace {

struct UTextCloser {
    void operator()(UText* text) const { utext_close(text); }
};

} // namespace

struct DictionaryBreaker::State {
    std::unique_ptr<icu::BreakIterator> iterator;
};

DictionaryBreaker::DictionaryBreaker()
    : m_state(std::make_unique<State>())
{
    UErrorCode status = U_ZERO_ERROR;
    m_state->iterator.reset(icu::BreakIterator::createWordInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status))
        throw std::runtime_error("ICU has no word-break data");
}

DictionaryBreaker::~DictionaryBreaker() = default;

bool DictionaryBreaker::forEachWord(std::string_view utf8,
                                    const std::function<bool(std::size_t, std::size_t)>& word)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UText, UTextCloser> text(
        utext_openUTF8(nullptr, utf8.data(), static_cast<std::int64_t>(utf8.size()), &status));
    m_state->iterator->setText(text.get(), status);
    if (U_FAILURE(status))
        return word(0, utf8.size());
    auto begin = m_state->iterator->first();
    for (auto end = m_state->iterator->next(); end != icu::BreakIterator::DONE;
         end = m_state->iterator->next()) {
        if (!word(static_cast<std::size_t>(begin), static_cast<std::size_t>(end)))
            return false;
        begin = end;
    }
    return true;
}
