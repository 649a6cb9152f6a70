#pragma once

#include "platform/foundation/NSGeometry.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/word/WordRelationshipWriting.h"

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// Writes attachments: pictures as such, other files as their names.
class WordPictureWriting {
public:
    struct Member {
        /// Within the package.
        std::string name;
        /// Lives as long as the attachment that it is of.
        std::string_view bytes;
    };

    /// A picture is at most as wide as the text, in points. The relationships must outlive the writing.
    WordPictureWriting(WordRelationshipWriting& relationships, double textWidth)
        : m_relationships(relationships)
        , m_textWidth(textWidth)
    {
    }

    /// Writes the content of a run. A picture (PNG, JPEG, GIF, TIFF, BMP, WebP, SVG by its bytes, whatever
    /// its name) is drawn in the attachment's bounds, else a point a pixel, shrunk in proportion to the
    /// text's width; of another file only its name is written, and nothing of one without a name. A file that
    /// is attached twice is in the document once. The attachment must live until the members are written.
    void write(WordXML& xml, const NSTextAttachment& attachment, std::u16string_view description);

    [[nodiscard]] const std::vector<Member>& members() const { return m_members; }

    /// Extension and MIME type of the kinds that there are.
    [[nodiscard]] const std::map<std::string_view, std::string_view>& types() const { return m_types; }

private:
    struct Picture;

    [[nodiscard]] NSSize sizeFor(const NSTextAttachment& attachment, NSSize pixelSize) const;
    std::string relationshipOf(std::string_view bytes, std::string_view extension);
    void writePicture(WordXML& xml, const Picture& picture);

    WordRelationshipWriting& m_relationships;
    double m_textWidth;
    std::vector<Member> m_members;
    std::map<std::string_view, std::string_view> m_types;
    /// By where their bytes lie.
    std::unordered_map<const char*, std::string> m_identifiers;
    std::int64_t m_count = 0;
};
