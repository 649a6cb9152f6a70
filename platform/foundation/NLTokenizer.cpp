#include "platform/foundation/NLTokenizer.h"

#include "platform/foundation/NSCharacterSet.h"

#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace {

struct TextCloser {
    void operator()(UText* text) const { utext_close(text); }
};

/// The place of the sentence as the library cuts them; an empty range when it cannot.
NSRange segmentAt(std::u16string_view text, int32_t index)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> sentences(
        icu::BreakIterator::createSentenceInstance(icu::Locale::getRoot(), status));
    const auto length = static_cast<int64_t>(std::min<std::size_t>(text.size(), INT32_MAX));
    const std::unique_ptr<UText, TextCloser> source(utext_openUChars(nullptr, text.data(), length, &status));
    if (U_FAILURE(status))
        return {};
    sentences->setText(source.get(), status);
    if (U_FAILURE(status))
        return {};
    const auto end = sentences->following(index);
    const auto start = sentences->previous();
    if (start == icu::BreakIterator::DONE || end == icu::BreakIterator::DONE)
        return {};
    return {static_cast<NSUInteger>(start), static_cast<NSUInteger>(end - start)};
}

} // namespace

NSRange sentenceRangeAtIndex(std::u16string_view text, NSUInteger index)
{
    constexpr NSRange kNone{NSNotFound, 0};
    if (index >= text.size() || index >= INT32_MAX)
        return kNone;
    const auto segment = segmentAt(text, static_cast<int32_t>(index));
    const auto words = text.substr(segment.location, segment.length);
    const bool isSentence
        = rangeOfCharacterFromSet(words, NSCharacterSet::alphanumericCharacterSet()).location != NSNotFound;
    return isSentence ? segment : kNone;
}
