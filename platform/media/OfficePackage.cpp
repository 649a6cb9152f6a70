#include "platform/media/OfficePackage.h"

#include "platform/foundation/NSURL.h"
#include "platform/media/CompoundFile.h"
#include "platform/media/DocumentProperties.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::size_t kRootProbeByteCount = 1024;

constexpr std::array<std::string_view, 3> kUsualMainParts{"word/document.xml", "xl/workbook.xml",
                                                          "ppt/presentation.xml"};

class RelationshipHandler final : public XMLHandler {
public:
    RelationshipHandler(std::string_view part, bool isExternal, std::size_t limit)
        : m_part(part)
        , m_isExternal(isExternal)
        , m_limit(limit)
    {
    }

    void startElement(std::string_view localName, const XMLAttributes& attributes) override
    {
        const bool isExternal = attributes.value("TargetMode") == "External";
        if (localName != "Relationship" || isExternal != m_isExternal || relationships.size() >= m_limit)
            return;
        const auto type = attributes.value("Type");
        const auto target = attributes.value("Target");
        relationships.push_back({std::string(attributes.value("Id")),
                                 std::string(type.substr(type.rfind('/') + 1)),
                                 isExternal ? std::string(target) : resolvedMemberName(m_part, target)});
    }

    std::vector<OfficePackage::Relationship> relationships;

private:
    std::string_view m_part;
    bool m_isExternal;
    std::size_t m_limit;
};

class RootHandler final : public XMLHandler {
public:
    void startElement(std::string_view localName, const XMLAttributes&) override
    {
        if (name.empty())
            name = localName;
    }

    std::string name;
};

/// What makes a file that is no zip container of a document that should be one.
ReadResult failureOf(const ContentSource& source, ReadResult zipFailure)
{
    const auto bytes = SourceBytes::open(source);
    const auto compound = bytes ? CompoundFile::open(*bytes) : std::nullopt;
    if (compound && compound->hasStream("EncryptedPackage"))
        return {ContentStatus::Locked, "the document is encrypted"};
    return zipFailure;
}

} // namespace

OfficePackage::OfficePackage(ZipContainer container, ContentSink& sink)
    : m_container(std::move(container))
    , m_sink(sink)
{
}

std::optional<OfficePackage> OfficePackage::open(const ContentSource& source, ContentSink& sink,
                                                 ReadResult& failure)
{
    auto container = ZipContainer::open(source, sink, failure);
    if (!container) {
        if (failure.status == ContentStatus::Damaged)
            failure = failureOf(source, std::move(failure));
        return std::nullopt;
    }
    return OfficePackage(std::move(*container), sink);
}

std::string OfficePackage::mainPart()
{
    for (const auto& relationship : relationshipsOf({})) {
        if (relationship.kind == "officeDocument")
            return relationship.target;
    }
    const auto* const usual
        = std::find_if(kUsualMainParts.begin(), kUsualMainParts.end(),
                       [this](std::string_view name) { return m_container.hasMember(name); });
    return std::string(usual == kUsualMainParts.end() ? std::string_view() : *usual);
}

std::vector<OfficePackage::Relationship> OfficePackage::relationshipsOf(std::string_view part)
{
    auto relationships = listOf(part, false);
    for (auto& relationship : relationships)
        relationship.target = m_container.storedName(relationship.target);
    std::erase_if(relationships, [](const auto& relationship) { return relationship.target.empty(); });
    return relationships;
}

std::vector<OfficePackage::Relationship> OfficePackage::externalLinksOf(std::string_view part)
{
    return listOf(part, true);
}

std::vector<OfficePackage::Relationship> OfficePackage::listOf(std::string_view part, bool isExternal)
{
    const auto nameStart = part.rfind('/') + 1;
    std::string listName(part.substr(0, nameStart));
    listName.append("_rels/").append(part.substr(nameStart)).append(".rels");
    RelationshipHandler handler(part, isExternal, m_sink.limits().entries);
    // A damaged list leaves parts unread, which the part that needs them shows.
    (void)readPart(listName, handler);
    return std::move(handler.relationships);
}

PartStatus OfficePackage::readPart(std::string_view name, XMLHandler& handler)
{
    return readXMLMember(m_container, name, handler, m_sink);
}

std::string OfficePackage::rootElementOf(std::string_view name)
{
    RootHandler handler;
    XMLTextStream stream(handler, m_sink);
    // Whatever goes wrong here goes wrong again when the part is read.
    (void)m_container.readMember(name, [&](std::string_view bytes) {
        while (!bytes.empty() && handler.name.empty()) {
            const auto probe = bytes.substr(0, kRootProbeByteCount);
            bytes.remove_prefix(probe.size());
            if (!stream.append(probe))
                return false;
        }
        return handler.name.empty();
    });
    return handler.name;
}

std::optional<std::string> OfficePackage::bytesOf(std::string_view name, std::size_t maximumByteCount)
{
    std::string bytes;
    bool isWhole = true;
    const auto status = m_container.readMember(name, [&](std::string_view data) {
        isWhole = data.size() <= maximumByteCount - bytes.size();
        bytes += isWhole ? data : std::string_view();
        return isWhole;
    });
    if (status != PartStatus::Read || !isWhole)
        return std::nullopt;
    return bytes;
}

void OfficePackage::readProperties()
{
    std::string name = "docProps/core.xml";
    for (auto& relationship : relationshipsOf({})) {
        if (relationship.kind == "core-properties")
            name = std::move(relationship.target);
    }
    DocumentProperties properties(m_sink);
    (void)readPart(name, properties); // By this function's promise.
}

PartStatus readXMLMember(ZipContainer& container, std::string_view name, XMLHandler& handler,
                         ContentSink& sink)
{
    XMLTextStream stream(handler, sink);
    const auto status
        = container.readMember(name, [&stream](std::string_view bytes) { return stream.append(bytes); });
    return status == PartStatus::Read ? stream.finish() : status;
}

ReadResult resultOfMainPart(PartStatus status)
{
    switch (status) {
    case PartStatus::Read:
    case PartStatus::Cut:
        return {};
    case PartStatus::Locked:
        return {ContentStatus::Locked, "the document is encrypted"};
    case PartStatus::Absent:
        return {ContentStatus::Damaged, "the container holds no document"};
    case PartStatus::Damaged:
        break;
    }
    return {ContentStatus::Damaged, "the document's main part is damaged"};
}

std::string resolvedMemberName(std::string_view base, std::string_view target)
{
    const auto path = percentDecoded(target.substr(0, target.find_first_of("#?")));
    const bool isAbsolute = !path.empty() && (path.front() == '/' || path.front() == '\\');
    std::string joined(isAbsolute ? std::string_view() : base.substr(0, base.rfind('/') + 1));
    joined += path;
    std::replace(joined.begin(), joined.end(), '\\', '/');

    std::string result;
    for (std::size_t start = 0; start <= joined.size();) {
        const auto end = std::min(joined.find('/', start), joined.size());
        const auto component = std::string_view(joined).substr(start, end - start);
        start = end + 1;
        if (component == "..") {
            const auto slash = result.rfind('/');
            result.resize(slash == std::string::npos ? 0 : slash);
        } else if (!component.empty() && component != ".") {
            result.append(result.empty() ? "" : "/").append(component);
        }
    }
    return result;
}
