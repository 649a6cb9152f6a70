#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/rtf/RTFPage.h"
#include "platform/rtf/RTFParameter.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

/// What a document says of itself, in RTF's own numbers.
struct RTFDocumentSettings {
    std::optional<std::int32_t> paperWidth;
    std::optional<std::int32_t> paperHeight;
    /// Left, right, top, bottom: as kRTFMarginWords.
    std::array<std::optional<std::int32_t>, 4> margins;
    std::optional<std::int32_t> viewWidth;
    std::optional<std::int32_t> viewHeight;
    std::optional<std::int32_t> viewKind;
    std::optional<std::int32_t> viewScale;
    std::optional<std::int32_t> readOnly;
    std::optional<std::int32_t> hyphenation;
    std::optional<std::int32_t> defaultTab;
    /// Of the platform's text system; none when another program wrote the document.
    std::optional<std::int32_t> cocoaVersion;

    [[nodiscard]] bool isCocoa() const { return cocoaVersion.value_or(0) > 0; }

    /// What paragraphs are set by.
    [[nodiscard]] RTFPage page() const;

    /// Adds the document attributes.
    void addTo(NSAny::Dictionary& attributes) const;
};

using RTFDocumentChange = void (*)(RTFDocumentSettings& settings, RTFParameter parameter);

struct RTFDocumentWord {
    std::string_view name;
    RTFDocumentChange change;
};

/// In no order.
[[nodiscard]] std::span<const RTFDocumentWord> documentWords();

/// The attribute of a word of a document's description; empty when it is none.
[[nodiscard]] std::u16string_view attributeOfInformation(std::string_view word);

/// The value of such an attribute: a text, or the keywords apart.
[[nodiscard]] NSAny valueOfInformation(std::u16string_view attribute, std::u16string_view text);
