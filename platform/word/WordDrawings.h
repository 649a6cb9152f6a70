#pragma once

#include "platform/foundation/NSGeometry.h"
#include "platform/media/XMLTextStream.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Follows the drawings of a text, of both kinds that the format has, to the pictures in them.
class WordDrawings {
public:
    struct Picture {
        /// The identifiers of the relationships that hold the picture, and the link on it.
        std::string picture;
        std::string link;
        std::string description;
        /// In points; nothing where the document does not say.
        NSSize size;
    };

    void startElement(std::string_view localName, const XMLAttributes& attributes);
    /// The picture that ends with the element.
    [[nodiscard]] std::optional<Picture> endElement(std::string_view localName);

private:
    struct Drawing {
        Picture whole;
        Picture own;
        bool isInPicture = false;
        /// One of several, with sizes of their own.
        bool isInGroup = false;
        NSSize shapeSize;
    };

    void readElement(Drawing& drawing, std::string_view localName, const XMLAttributes& attributes);
    [[nodiscard]] static Picture finished(const Drawing& drawing);

    std::vector<Drawing> m_open;
};
