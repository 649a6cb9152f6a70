#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"

#include <string_view>
#include <utility>
#include <vector>

/// The image of a pattern colour, or one of the representations of an image, as an archive holds it: values
/// under keys, carried from one archive into the next and never looked into. Immutable.
class PatternImage final : public NSCoding {
public:
    /// The class that stands for archived images, and those for their representations.
    [[nodiscard]] static const NSClass& imageClass();
    [[nodiscard]] static const NSClass& bitmapClass();
    [[nodiscard]] static const NSClass& PDFClass();

    /// Same class and values.
    [[nodiscard]] bool isEqual(const NSObject& other) const override;
    [[nodiscard]] std::size_t hash() const override;

    [[nodiscard]] const NSClass& classForCoder() const override { return *m_class; }

    void encodeWithCoder(NSCoder& coder) const override;

private:
    explicit PatternImage(const NSClass& archivedClass)
        : m_class(&archivedClass)
    {
    }

    static NSAny imageFromCoder(NSCoder& coder);
    static NSAny bitmapFromCoder(NSCoder& coder);
    static NSAny PDFFromCoder(NSCoder& coder);
    static NSAny fromCoder(const NSClass& archivedClass, NSCoder& coder);

    const NSClass* m_class;
    std::vector<std::pair<std::string_view, NSAny>> m_values;
};
