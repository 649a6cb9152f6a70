#pragma once

#include "platform/html/HTMLDeclarations.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSFont.h"

#include <optional>
#include <string>

/// A font as style sheets tell it.
struct HTMLFont {
    static constexpr int kRegularWeight = 400;
    static constexpr int kBoldWeight = 700;

    std::u16string family;
    double size = NSFont::kDefaultSize;
    /// 100 to 900.
    int weight = kRegularWeight;
    bool isItalic = false;
    /// What to take where the family is not known: "sans-serif".
    std::string_view genericFamily = "sans-serif";

    [[nodiscard]] static HTMLFont fontOf(const NSFont& font);

    friend bool operator==(const HTMLFont&, const HTMLFont&) = default;
    friend bool operator<(const HTMLFont& one, const HTMLFont& other);

    /// What tells this font from `base`.
    void addDifferences(const HTMLFont& base, HTMLDeclarations& declarations) const;
    /// "13px \"Helvetica Neue\",sans-serif"
    [[nodiscard]] std::string shorthand() const;

private:
    [[nodiscard]] std::string families() const;
};

/// What text of a page looks like by itself.
struct HTMLBaseStyle {
    HTMLFont font;
    /// Null for the reader's own.
    NSColor::Ref color;
};

/// The font that most characters of the range have, by its first 4,096 runs; none when none of them has one.
[[nodiscard]] std::optional<HTMLFont> mostUsedFont(const NSAttributedString& text, NSRange range);

/// The text colour that most characters of the range have; null when some have none, or one that they would
/// have by themselves.
[[nodiscard]] NSColor::Ref mostUsedColor(const NSAttributedString& text, NSRange range);
