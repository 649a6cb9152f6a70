#pragma once

#include "platform/text/NSAttributedString.h"
#include "platform/word/WordFonts.h"
#include "platform/word/WordProperties.h"

#include <map>
#include <string>
#include <string_view>

/// How a piece of text looks, and where it leads.
struct WordTextLook {
    /// All of the styles' properties applied.
    WordRunProperties properties;
    /// The address of a link; empty for none.
    std::string link;
    std::string toolTip;

    friend auto operator<=>(const WordTextLook&, const WordTextLook&) = default;
};

/// The scripts that a run has fonts for.
enum class WordScript { Western, EastAsian, Complex };

/// The script of the first letter that has one; Western when none has.
[[nodiscard]] WordScript scriptOfText(std::u16string_view text);

/// Text attributes for looks, made once each. Each costs memory for as long as the text lives: beyond a bound
/// of looks, new ones are taken for the last one made.
class WordTextAttributes {
public:
    /// The fonts must outlive the attributes.
    explicit WordTextAttributes(WordFonts& fonts)
        : m_fonts(fonts)
    {
    }

    /// Valid until the next call.
    [[nodiscard]] const NSAttributes& attributes(const WordTextLook& look, WordScript script);

private:
    [[nodiscard]] NSAttributes make(const WordTextLook& look, WordScript script);
    [[nodiscard]] NSFont::Ref fontFor(const WordRunProperties& properties, WordScript script);

    WordFonts& m_fonts;
    std::map<std::pair<WordScript, WordTextLook>, NSAttributes> m_made;
    NSAttributes m_last;
    std::size_t m_madeCount = 0;
};
