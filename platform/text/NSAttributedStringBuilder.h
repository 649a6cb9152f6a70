#pragma once

#include "platform/text/AttributeRuns.h"
#include "platform/text/NSAttributedString.h"

#include <memory>
#include <string_view>

/// Puts a text together from its start to its end, for readers of documents. A piece costs what it holds: its
/// attributes are shared as they come, neither copied nor looked up.
class NSAttributedStringBuilder {
public:
    NSAttributedStringBuilder();
    NSAttributedStringBuilder(const NSAttributedStringBuilder&) = delete;
    NSAttributedStringBuilder& operator=(const NSAttributedStringBuilder&) = delete;
    NSAttributedStringBuilder(NSAttributedStringBuilder&&) = default;
    NSAttributedStringBuilder& operator=(NSAttributedStringBuilder&&) = default;
    ~NSAttributedStringBuilder();

    /// Adds characters that have these attributes, which must not be null.
    void append(std::u16string_view characters, const SharedAttributes& attributes);

    [[nodiscard]] NSUInteger length() const;

    /// The text so far. The builder begins with an empty one again.
    [[nodiscard]] NSAttributedString finish();

private:
    std::shared_ptr<AttributedText> m_text;
};
