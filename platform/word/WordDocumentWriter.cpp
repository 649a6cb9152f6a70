#include "platform/word/WordDocumentWriter.h"

#include "platform/media/ZipWriter.h"
#include "platform/word/WordBodyWriting.h"
#include "platform/word/WordFontTableWriting.h"
#include "platform/word/WordPropertiesWriting.h"
#include "platform/word/WordStylesWriting.h"

#include <vector>

namespace {

constexpr std::string_view kFormatTypes = "application/vnd.openxmlformats-officedocument.";
constexpr std::string_view kCorePropertiesType
    = "http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties";

struct Part {
    /// Within the package.
    std::string name;
    std::string contentType;
    std::string bytes;
};

class DocumentWriter {
public:
    DocumentWriter(const NSAttributedString& text, NSRange range, const NSAny::Dictionary& documentAttributes)
        : m_sets(wordAttributeSets(text, range))
        , m_page(wordPageOf(documentAttributes, m_sets))
        , m_styles(styleLooksOf(m_sets))
        , m_pictures(m_bodyRelationships, m_page.textWidth())
    {
        WordBodyWriting body(text, range, m_page, m_styles, m_bodyRelationships, m_pictures, m_lists);
        addPart("officeDocument", "word/document.xml", "wordprocessingml.document.main", body.part());
        addBesideBody("styles", wordStylesPart(m_styles));
        addBesideBody("settings", wordSettingsPart(m_page));
        addBesideBody("fontTable", wordFontTablePart(m_sets));
        if (!m_lists.isEmpty())
            addBesideBody("numbering", m_lists.part());
        addProperties(documentAttributes);
    }

    [[nodiscard]] std::optional<std::string> file(NSError* error) const
    {
        const auto contentTypes = contentTypesPart();
        const auto relationships = m_relationships.part();
        const auto bodyRelationships = m_bodyRelationships.part();
        std::vector<ZipEntry> entries{{"[Content_Types].xml", contentTypes},
                                      {"_rels/.rels", relationships},
                                      {"word/_rels/document.xml.rels", bodyRelationships}};
        for (const auto& part : m_parts)
            entries.push_back({part.name, part.bytes});
        for (const auto& picture : m_pictures.members())
            entries.push_back({picture.name, picture.bytes, false});
        return zipFileOf(entries, error);
    }

private:
    void addPart(std::string_view relationship, const std::string& name, std::string_view type,
                 std::string bytes)
    {
        m_relationships.add(relationship, name);
        addUnreferenced(name, type, std::move(bytes));
    }

    void addBesideBody(std::string_view kind, std::string bytes)
    {
        const auto name = std::string(kind) + ".xml";
        m_bodyRelationships.add(kind, name);
        addUnreferenced("word/" + name, "wordprocessingml." + std::string(kind), std::move(bytes));
    }

    void addUnreferenced(std::string name, std::string_view type, std::string bytes)
    {
        const auto prefix = type.find('/') == std::string_view::npos ? kFormatTypes : std::string_view();
        m_parts.push_back(
            {std::move(name), std::string(prefix).append(type).append("+xml"), std::move(bytes)});
    }

    void addProperties(const NSAny::Dictionary& documentAttributes)
    {
        if (auto core = wordCorePropertiesPart(documentAttributes); !core.empty())
            addPart(kCorePropertiesType, "docProps/core.xml",
                    "application/vnd.openxmlformats-package.core-properties", std::move(core));
        if (auto extended = wordExtendedPropertiesPart(documentAttributes); !extended.empty())
            addPart("extended-properties", "docProps/app.xml", "extended-properties", std::move(extended));
    }

    [[nodiscard]] std::string contentTypesPart() const
    {
        WordXML xml;
        const auto writeDefault = [&xml](std::string_view extension, std::string_view type) {
            xml.raw("<Default");
            xml.attribute("Extension", extension);
            xml.attribute("ContentType", type);
            xml.raw("/>");
        };
        xml.raw(kWordXMLDeclaration);
        xml.raw("<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">");
        writeDefault("rels", "application/vnd.openxmlformats-package.relationships+xml");
        writeDefault("xml", "application/xml");
        for (const auto& [extension, type] : m_pictures.types())
            writeDefault(extension, type);
        for (const auto& part : m_parts) {
            xml.raw("<Override");
            xml.attribute("PartName", std::string_view("/" + part.name));
            xml.attribute("ContentType", std::string_view(part.contentType));
            xml.raw("/>");
        }
        xml.raw("</Types>");
        return xml.takeBytes();
    }

    std::vector<WordAttributeSet> m_sets;
    WordPage m_page;
    WordStyleLooks m_styles;
    WordRelationshipWriting m_relationships;
    WordRelationshipWriting m_bodyRelationships;
    WordPictureWriting m_pictures;
    WordListWriting m_lists;
    std::vector<Part> m_parts;
};

} // namespace

std::optional<std::string> wordDocument(const NSAttributedString& text, NSRange range,
                                        const NSAny::Dictionary& documentAttributes, NSError* error)
{
    const auto within = NSIntersectionRange(range, {0, text.length()});
    return DocumentWriter(text, within, documentAttributes).file(error);
}
