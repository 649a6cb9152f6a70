#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

/// A picture within a document, as other programs write them.
class RTFPicture {
public:
    /// Takes a word of the picture's group; whether it is known.
    bool takeWord(std::string_view name);
    /// Takes hexadecimal digits; everything else is passed over.
    void takeText(std::string_view text);
    void takeBinary(std::string_view data);

    /// The extension of the picture's file; empty for a kind that is not kept, or without data.
    [[nodiscard]] std::string_view fileExtension() const;

    [[nodiscard]] std::string takeData() { return std::move(m_data); }

private:
    enum class Kind : std::uint8_t { Unknown, PNG, JPEG };

    Kind m_kind = Kind::Unknown;
    std::string m_data;
    std::int32_t m_upperDigit = -1;
};
