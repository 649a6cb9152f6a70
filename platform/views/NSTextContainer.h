#pragma once

#include "platform/foundation/NSGeometry.h"
#include "platform/text/NSAttributedString.h"

/// The region that a text is laid out in, and the text.
class NSTextContainer {
public:
    /// `textStorage` is borrowed, and must live as long as the container does or until another is set; null
    /// for no text.
    explicit NSTextContainer(NSSize size, const NSAttributedString* textStorage = nullptr)
        : m_size(size)
        , m_textStorage(textStorage)
    {
    }

    [[nodiscard]] NSSize size() const { return m_size; }

    void setSize(NSSize size) { m_size = size; }

    [[nodiscard]] const NSAttributedString* textStorage() const { return m_textStorage; }

    void setTextStorage(const NSAttributedString* textStorage) { m_textStorage = textStorage; }

private:
    NSSize m_size;
    const NSAttributedString* m_textStorage;
};
