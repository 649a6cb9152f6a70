#include "tests/support/SampleIndex.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

std::vector<std::string> split(const std::string& text, std::string_view separator)
{
    std::vector<std::string> parts;
    for (std::size_t start = 0; start <= text.size();) {
        const auto end = std::min(text.find(separator, start), text.size());
        if (end > start)
            parts.push_back(text.substr(start, end - start));
        start = end + separator.size();
    }
    return parts;
}

std::string folded(std::string_view text)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto* const form = icu::Normalizer2::getNFCInstance(status);
    auto unicode = form->normalize(icu::UnicodeString::fromUTF8(std::string(text)), status);
    unicode = form->normalize(unicode.foldCase(), status);
    std::string result;
    return unicode.toUTF8String(result);
}

bool belongsToWord(UChar32 character)
{
    constexpr auto kMarks = U_GC_M_MASK;
    return u_isalnum(character) != 0 || character == '_' || (U_GET_GC_MASK(character) & kMarks) != 0;
}

std::vector<std::string> wordsOf(const std::string& text)
{
    std::vector<std::string> words(1);
    const auto unicode = icu::UnicodeString::fromUTF8(text);
    for (int32_t index = 0; index < unicode.length(); index = unicode.moveIndex32(index, 1)) {
        const auto character = unicode.char32At(index);
        if (belongsToWord(character))
            icu::UnicodeString(character).toUTF8String(words.back());
        else if (!words.back().empty())
            words.emplace_back();
    }
    if (words.back().empty())
        words.pop_back();
    return words;
}

std::string withoutPlace(std::string_view term)
{
    for (const std::string_view place :
         {"footnotes:", "endnotes:", "header:", "footer:", "textbox:", "comments:", "notes:"}) {
        if (term.starts_with(place))
            return std::string(term.substr(place.size()));
    }
    return std::string(term);
}

} // namespace

std::vector<Sample> samplesOf(std::string_view category)
{
    const auto folder = std::filesystem::path(CORVEL_SAMPLES_DIR) / category;
    std::ifstream index(folder / "INDEX.tsv");
    std::vector<Sample> samples;
    std::string line;
    std::getline(index, line);
    while (std::getline(index, line)) {
        std::istringstream fields(line);
        Sample sample;
        std::string mustFind;
        std::string softFind;
        std::string attachments;
        std::getline(fields, sample.file, '\t');
        std::getline(fields, sample.verdict, '\t');
        std::getline(fields, mustFind, '\t');
        std::getline(fields, softFind, '\t');
        std::getline(fields, attachments, '\t');
        sample.path = (folder / sample.file).native();
        sample.mustFind = split(mustFind, " | ");
        sample.softFind = split(softFind, " | ");
        sample.attachments = split(attachments, " | ");
        samples.push_back(std::move(sample));
    }
    return samples;
}

SampleText::SampleText(std::string_view text)
    : m_text(folded(text))
    , m_words(wordsOf(m_text))
{
    std::sort(m_words.begin(), m_words.end());
}

bool SampleText::holds(std::string_view term) const
{
    const auto wanted = folded(withoutPlace(term));
    if (wanted.starts_with('~'))
        return m_text.find(wanted.substr(1)) != std::string::npos;
    const auto words = wordsOf(wanted);
    return std::all_of(words.begin(), words.end(), [this](const std::string& word) {
        return std::binary_search(m_words.begin(), m_words.end(), word);
    });
}

std::vector<std::string> missingTerms(const SampleText& text, const std::vector<std::string>& terms)
{
    std::vector<std::string> missing;
    std::copy_if(terms.begin(), terms.end(), std::back_inserter(missing),
                 [&text](const std::string& term) { return !text.holds(term); });
    return missing;
}
