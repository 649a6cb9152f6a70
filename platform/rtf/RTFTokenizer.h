#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// One piece of an RTF document.
struct RTFToken {
    enum class Kind {
        End,
        GroupStart,
        GroupEnd,
        /// A control word; `bytes` is its name without the backslash.
        Word,
        /// A control symbol such as \~ ; `byte` is the character.
        Symbol,
        /// A byte written as \'hh, or an escaped brace or backslash.
        Byte,
        /// A run of bytes that stand for themselves.
        Text,
        /// The data of \bin, in `bytes`.
        Binary,
    };

    Kind kind = Kind::End;
    std::string_view bytes{};
    char byte = 0;
    /// A control word's parameter, clamped to 32 bits.
    std::optional<std::int32_t> parameter{};
};

/// Splits an RTF document into tokens, in one pass and without copying; any bytes may come in. The bytes
/// must outlive the tokens.
class RTFTokenizer {
public:
    explicit RTFTokenizer(std::string_view bytes);

    [[nodiscard]] RTFToken next();

private:
    [[nodiscard]] RTFToken controlToken();
    [[nodiscard]] RTFToken wordToken();
    [[nodiscard]] RTFToken hexToken();
    [[nodiscard]] RTFToken textToken();
    [[nodiscard]] std::optional<std::int32_t> parameter();

    [[nodiscard]] bool isAtEnd() const { return m_offset >= m_bytes.size(); }

    std::string_view m_bytes;
    std::size_t m_offset = 0;
};
