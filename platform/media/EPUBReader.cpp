#include "platform/media/EPUBReader.h"

#include "platform/html/HTMLText.h"
#include "platform/media/DocumentProperties.h"
#include "platform/media/OfficePackage.h"
#include "platform/media/XMLHandlerPair.h"
#include "platform/media/ZipContainer.h"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// Finds the book's package file in the container's description.
class ContainerHandler final : public XMLHandler {
public:
    void startElement(std::string_view localName, const XMLAttributes& attributes) override
    {
        if (localName == "rootfile" && packageFile.empty())
            packageFile = resolvedMemberName({}, attributes.value("full-path"));
    }

    std::string packageFile;
};

/// Takes the order of the chapters out of the package file.
class PackageHandler final : public XMLHandler {
public:
    PackageHandler(std::string_view packageFile, std::size_t limit)
        : m_packageFile(packageFile)
        , m_limit(limit)
    {
    }

    void startElement(std::string_view localName, const XMLAttributes& attributes) override
    {
        if (localName == "item" && m_members.size() < m_limit) {
            m_members.try_emplace(std::string(attributes.value("id")),
                                  resolvedMemberName(m_packageFile, attributes.value("href")));
        } else if (localName == "itemref" && m_spine.size() < m_limit) {
            m_spine.emplace_back(attributes.value("idref"));
        }
    }

    /// The members' names in reading order, each once.
    [[nodiscard]] std::vector<std::string> chapters() const
    {
        std::vector<std::string> names;
        std::set<std::string_view> seen;
        for (const auto& identifier : m_spine) {
            const auto found = m_members.find(identifier);
            if (found != m_members.end() && seen.insert(found->second).second)
                names.push_back(found->second);
        }
        return names;
    }

private:
    std::string m_packageFile;
    std::size_t m_limit;
    std::map<std::string, std::string, std::less<>> m_members;
    std::vector<std::string> m_spine;
};

/// Collects the members that are encrypted: with protected books the chapters, with others at most their
/// fonts.
class EncryptionHandler final : public XMLHandler {
public:
    void startElement(std::string_view localName, const XMLAttributes& attributes) override
    {
        if (localName == "CipherReference")
            members.insert(resolvedMemberName({}, attributes.value("URI")));
    }

    std::set<std::string, std::less<>> members;
};

class BookReader {
public:
    BookReader(ZipContainer& container, ContentSink& sink)
        : m_container(container)
        , m_sink(sink)
    {
    }

    [[nodiscard]] ReadResult read();

private:
    void readChapter(const std::string& name);

    ZipContainer& m_container;
    ContentSink& m_sink;
};

ReadResult BookReader::read()
{
    ContainerHandler description;
    EncryptionHandler encryption;
    // Without the first there is no package file below, and most books have no list of encrypted members.
    (void)readXMLMember(m_container, "META-INF/container.xml", description, m_sink);
    (void)readXMLMember(m_container, "META-INF/encryption.xml", encryption, m_sink);
    PackageHandler package(description.packageFile, m_sink.limits().entries);
    DocumentProperties properties(m_sink);
    XMLHandlerPair both(package, properties);
    const auto status = readXMLMember(m_container, description.packageFile, both, m_sink);
    std::size_t lockedCount = 0;
    const auto chapters = package.chapters();
    for (const auto& chapter : chapters) {
        if (m_sink.isFull())
            return {};
        if (encryption.members.contains(chapter))
            ++lockedCount;
        else
            readChapter(chapter);
    }
    return resultOfMainPart(lockedCount > 0 && lockedCount == chapters.size() ? PartStatus::Locked : status);
}

void BookReader::readChapter(const std::string& name)
{
    std::string bytes;
    const auto limit = m_sink.limits().wholeFileBytes;
    // What cannot be read of one chapter is missing; the others do not suffer.
    (void)m_container.readMember(name, [&](std::string_view data) {
        bytes += data.substr(0, limit - bytes.size());
        return bytes.size() < limit;
    });
    m_sink.breakLine();
    // A chapter's title is a heading of the chapter, not the book's title.
    (void)renderHTMLText(bytes, {}, [this](std::string_view text) { return m_sink.append(text); });
}

} // namespace

ReadResult readEPUB(const ContentSource& source, ContentSink& sink)
{
    ReadResult failure;
    auto container = ZipContainer::open(source, sink, failure);
    return container ? BookReader(*container, sink).read() : failure;
}
