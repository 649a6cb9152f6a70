#pragma once

#include "platform/foundation/NSCoding.h"
#include "platform/text/NSAttributedString.h"

/// An attributed string as an object, for archives and collections. In an archive it is of the class
/// NSAttributedString or NSMutableAttributedString; text storages are read as the latter.
class NSAttributedStringObject final : public NSCoding {
public:
    enum class Form { Immutable, Mutable };

    explicit NSAttributedStringObject(NSAttributedString text, Form form = Form::Immutable);

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] static const NSClass& mutableClassObject();
    [[nodiscard]] static const NSClass& textStorageClassObject();

    [[nodiscard]] const NSAttributedString& text() const { return m_text; }

    /// Whether the texts are equal, whatever their forms.
    [[nodiscard]] bool isEqual(const NSObject& other) const override;
    [[nodiscard]] std::size_t hash() const override;
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

private:
    [[nodiscard]] static NSAny initWithCoder(NSCoder& coder, Form form);

    NSAttributedString m_text;
    Form m_form;
};
