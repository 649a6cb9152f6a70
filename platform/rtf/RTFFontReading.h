#pragma once

#include "platform/rtf/RTFParameter.h"
#include "platform/text/NSFont.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

/// The fonts of a document that is being read, from its table. A name is a PostScript name, as the platform
/// writes it, or a family's, as others do. A font that is not there is Times, Courier or Helvetica, by its
/// kind.
class RTFFontReading {
public:
    /// Takes a word of the table; whether it is one.
    bool takeWord(std::string_view name, RTFParameter parameter);
    /// Takes text of the table, UTF-8: names, each up to a semicolon.
    void takeText(std::string_view text);
    /// Ends the name that has no semicolon.
    void endGroup();

    /// The font of the number, or Helvetica without one, at a size in points. Traits are added to a face that
    /// has them not, where the family has one that does.
    [[nodiscard]] NSFont::Ref fontAt(std::optional<std::int32_t> number, double size, bool isBold,
                                     bool isItalic);

private:
    enum class Kind : std::uint8_t { SansSerif, Serif, FixedPitch };

    struct Entry {
        std::string name;
        Kind kind = Kind::SansSerif;
        bool isNamed = false;
        /// Found when it is first asked for.
        NSFont::Ref font;
    };

    void endName();
    [[nodiscard]] static NSFont::Ref findFont(const Entry& entry);

    std::unordered_map<std::int32_t, Entry> m_entries;
    Entry m_described;
    std::int32_t m_number = 0;
};
