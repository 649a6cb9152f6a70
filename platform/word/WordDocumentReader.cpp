#include "platform/word/WordDocumentReader.h"

#include "platform/foundation/NSValue.h"
#include "platform/foundation/Unicode.h"
#include "platform/media/CompoundFile.h"
#include "platform/media/OfficePackage.h"
#include "platform/media/SourceBytes.h"
#include "platform/media/WordprocessingReader.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/word/WordDocumentProperties.h"
#include "platform/word/WordStoryHandler.h"

#include <algorithm>
#include <array>
#include <set>

namespace {

using Relationships = std::vector<OfficePackage::Relationship>;

/// What stands in parts of their own that give the texts their looks.
struct Definitions {
    WordTheme theme;
    WordFonts fonts;
    WordStyles styles;
    WordNumbering numbering;
    WordSettings settings;
};

void readDefinition(OfficePackage& package, const Relationships& relationships, std::string_view kind,
                    XMLHandler& handler)
{
    const auto found = std::find_if(relationships.begin(), relationships.end(),
                                    [kind](const auto& relationship) { return relationship.kind == kind; });
    if (found != relationships.end())
        (void)package.readPart(found->target, handler); // Without it the text is only plainer.
}

void readDefinitions(OfficePackage& package, const Relationships& relationships, Definitions& definitions)
{
    WordThemeHandler theme(definitions.theme);
    readDefinition(package, relationships, "theme", theme);
    WordFontTableHandler fonts(definitions.fonts);
    readDefinition(package, relationships, "fontTable", fonts);
    WordStylesHandler styles(definitions.styles, definitions.theme);
    readDefinition(package, relationships, "styles", styles);
    styles.resolve();
    WordNumberingHandler numbering(definitions.numbering, definitions.theme);
    readDefinition(package, relationships, "numbering", numbering);
    numbering.resolve(definitions.styles);
    WordSettingsHandler settings(definitions.settings);
    readDefinition(package, relationships, "settings", settings);
}

/// Reads the parts around the body, and adds their text to it.
class FurtherParts {
public:
    FurtherParts(OfficePackage& package, WordDocumentState& state, NSMutableAttributedString& text)
        : m_package(package)
        , m_state(state)
        , m_text(text)
    {
    }

    void read(const Relationships& relationships)
    {
        readKinds(relationships, kNotes);
        readKinds(relationships, kOthers);
    }

private:
    static constexpr std::array<std::string_view, 3> kNotes{"footnotes", "endnotes", "comments"};
    static constexpr std::array<std::string_view, 5> kOthers{"header", "footer", "diagramData", "chart",
                                                             "aFChunk"};

    template <typename Kinds> void readKinds(const Relationships& relationships, const Kinds& kinds)
    {
        for (const auto& relationship : relationships) {
            const bool isMeant = std::find(kinds.begin(), kinds.end(), relationship.kind) != kinds.end();
            if (isMeant && !m_state.reading.sink.isFull() && m_read.insert(relationship.target).second)
                readPart(relationship);
        }
    }

    void readPart(const OfficePackage::Relationship& relationship)
    {
        const bool isNotes = std::find(kNotes.begin(), kNotes.end(), relationship.kind) != kNotes.end();
        if (isNotes || relationship.kind == "header" || relationship.kind == "footer")
            readStory(relationship.target, isNotes);
        else
            readPlainText(relationship);
    }

    void readStory(const std::string& part, bool isNotes)
    {
        const WordRelationships relationships(m_package, part);
        WordStoryHandler handler(m_state, relationships);
        (void)m_package.readPart(part, handler); // What could be read is text of the document.
        const auto& text = handler.finish();
        if (isNotes)
            appendNotes(m_text, text, handler.notes(), m_state.noteNumbers);
        else
            m_text.appendAttributedString(text);
    }

    void readPlainText(const OfficePackage::Relationship& relationship)
    {
        auto& sink = m_state.reading.sink;
        sink.breakLine();
        const auto start = sink.byteCount();
        readFurtherPart(m_package, relationship, sink);
        sink.breakLine();
        WordTextLook look{m_state.reading.styles.defaults().run, {}, {}};
        m_text.appendAttributedString(
            NSAttributedString(UTF16FromUTF8(sink.text().substr(start)),
                               m_state.reading.attributes.attributes(look, WordScript::Western)));
    }

    OfficePackage& m_package;
    WordDocumentState& m_state;
    NSMutableAttributedString& m_text;
    std::set<std::string> m_read;
};

void addLayout(NSAny::Dictionary& attributes, const WordPageLayout& layout)
{
    const auto add = [&attributes](std::u16string_view name, NSAny value) {
        attributes.emplace(name, std::move(value));
    };
    add(NSDocumentTypeDocumentAttribute, NSOfficeOpenXMLTextDocumentType);
    if (layout.paper)
        add(NSPaperSizeDocumentAttribute, NSAny(std::make_shared<const NSValue>(*layout.paper)));
    if (!layout.margins)
        return;
    add(NSLeftMarginDocumentAttribute, layout.margins->left);
    add(NSRightMarginDocumentAttribute, layout.margins->right);
    add(NSTopMarginDocumentAttribute, layout.margins->top);
    add(NSBottomMarginDocumentAttribute, layout.margins->bottom);
}

void readProperties(OfficePackage& package, NSAny::Dictionary& attributes)
{
    for (const auto& relationship : package.relationshipsOf({})) {
        WordDocumentProperties properties(attributes);
        if (relationship.kind == "core-properties" || relationship.kind == "extended-properties")
            (void)package.readPart(relationship.target, properties); // What it says is no part of the text.
    }
}

ReadResult readDocument(OfficePackage& package, const std::string& mainPart, ContentSink& sink,
                        WordDocument& document)
{
    const auto parts = package.relationshipsOf(mainPart);
    Definitions definitions;
    readDefinitions(package, parts, definitions);
    WordLists lists(definitions.numbering);
    WordTextAttributes attributes(definitions.fonts);
    WordDocumentState state{definitions.theme,
                            {definitions.styles, definitions.settings, lists, attributes, sink, 0},
                            {},
                            {},
                            {}};

    const WordRelationships relationships(package, mainPart);
    WordStoryHandler body(state, relationships);
    auto result = resultOfMainPart(package.readPart(mainPart, body));
    NSMutableAttributedString text(body.finish());
    if (result.status != ContentStatus::Read)
        return result;
    FurtherParts(package, state, text).read(parts);
    state.pictures.load(package, sink);
    readProperties(package, document.attributes);
    addLayout(document.attributes, state.layout);
    document.text = std::move(text);
    return result;
}

bool isLegacyDocument(const ContentSource& source)
{
    const auto bytes = SourceBytes::open(source);
    const auto compound = bytes ? CompoundFile::open(*bytes) : std::nullopt;
    return compound && compound->hasStream("WordDocument");
}

} // namespace

ReadResult readWordDocument(const ContentSource& source, ContentSink& sink, WordDocument& document)
{
    ReadResult failure;
    auto package = OfficePackage::open(source, sink, failure);
    if (!package && failure.status == ContentStatus::Damaged && isLegacyDocument(source))
        return {ContentStatus::UnknownKind, "documents of Word 97 to 2003 are read as plain text only"};
    if (!package)
        return failure;
    const auto mainPart = package->mainPart();
    if (mainPart.empty())
        return {ContentStatus::Damaged, "the container holds no document"};
    const auto root = package->rootElementOf(mainPart);
    if (root == "workbook" || root == "presentation")
        return {ContentStatus::UnknownKind, "the container holds a " + root};
    return readDocument(*package, mainPart, sink, document);
}
