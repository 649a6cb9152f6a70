#pragma once

#include <string>
#include <string_view>
#include <vector>

/// One row of a sample folder's INDEX.tsv.
struct Sample {
    std::string path;
    std::string file;
    /// "must", "soft", "robust", "locked" or "broken".
    std::string verdict;
    std::vector<std::string> mustFind;
    std::vector<std::string> softFind;
    /// Of messages only: `name <type>` of each attachment.
    std::vector<std::string> attachments;
};

/// The rows of the folder `category`; empty when the samples are not on this machine.
[[nodiscard]] std::vector<Sample> samplesOf(std::string_view category);

/// A text in which the terms of samples are looked for: case-folded and normalised, in words of letters and
/// digits.
class SampleText {
public:
    explicit SampleText(std::string_view text);

    /// Whether every word of `term` is a word of the text; a term that begins with "~" is looked for as it
    /// stands. A prefix that names a term's place ("header:") is not part of it.
    [[nodiscard]] bool holds(std::string_view term) const;

private:
    std::string m_text;
    std::vector<std::string> m_words;
};

/// The terms that `text` does not hold.
[[nodiscard]] std::vector<std::string> missingTerms(const SampleText& text,
                                                    const std::vector<std::string>& terms);
