#include "bench/SampleText.h"

#include <array>
#include <cmath>
#include <random>
#include <string_view>

namespace {

constexpr double kVocabulary = 50'000;
constexpr std::size_t kWordsInALine = 12;

} // namespace

std::string sampleWord(std::size_t rank)
{
    constexpr std::array<std::string_view, 16> kSyllables{"an", "be", "cor", "da", "el", "fi", "gra", "ho",
                                                          "in", "ka", "lo",  "mu", "ne", "or", "pel", "ti"};
    std::string word;
    for (auto rest = rank + 16; rest > 0; rest /= kSyllables.size())
        word += kSyllables.at(rest % kSyllables.size());
    return word;
}

std::string sampleText(std::uint32_t seed, std::size_t byteCount)
{
    std::mt19937 random(seed);
    std::string text;
    for (std::size_t count = 1; text.size() < byteCount; ++count) {
        // Frequency falls with rank, as in Zipf's law: ranks are spread evenly on a logarithmic scale.
        const double share = static_cast<double>(random()) / static_cast<double>(std::mt19937::max());
        text += sampleWord(static_cast<std::size_t>(std::pow(kVocabulary, share)) - 1);
        text += count % kWordsInALine == 0 ? ".\n" : " ";
    }
    text.resize(byteCount);
    return text;
}
