#pragma once

#include "platform/media/XMLTextStream.h"
#include "platform/media/ZipContainer.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A zip container whose parts are XML and point at each other by relationships, as Office Open XML defines
/// it.
class OfficePackage {
public:
    struct Relationship {
        std::string identifier;
        /// The last component of the relationship's type, which the transitional and the strict form share:
        /// "officeDocument", "footnotes", "slide".
        std::string kind;
        /// The stored name of the part it points at.
        std::string target;
    };

    /// None, with status and reason in `failure`: `Locked` for an encrypted package, `Damaged` for what is no
    /// package.
    [[nodiscard]] static std::optional<OfficePackage> open(const ContentSource& source, ContentSink& sink,
                                                           ReadResult& failure);

    /// The part that the package says is its document, or the one where it usually is; empty when there is
    /// none.
    [[nodiscard]] std::string mainPart();
    /// The relationships of a part to others that this package has; of the package itself for the empty name.
    /// A damaged list gives those before the damage.
    [[nodiscard]] std::vector<Relationship> relationshipsOf(std::string_view part);
    /// The relationships of a part to what lies outside of the package; each target is an address as it is
    /// written. Nothing is ever fetched from there.
    [[nodiscard]] std::vector<Relationship> externalLinksOf(std::string_view part);
    /// Parses a part, in constant memory.
    [[nodiscard]] PartStatus readPart(std::string_view name, XMLHandler& handler);
    /// The local name of a part's outermost element; empty when the part is absent or no XML.
    [[nodiscard]] std::string rootElementOf(std::string_view name);
    /// The bytes of a part that is of another format; none when it is absent, unreadable or over
    /// `maximumByteCount`.
    [[nodiscard]] std::optional<std::string> bytesOf(std::string_view name, std::size_t maximumByteCount);
    /// Adds the document's description to the sink. A damaged description is no damage of the document.
    void readProperties();

private:
    OfficePackage(ZipContainer container, ContentSink& sink);

    [[nodiscard]] std::vector<Relationship> listOf(std::string_view part, bool isExternal);

    ZipContainer m_container;
    ContentSink& m_sink;
};

/// Parses a member of a container as XML, in constant memory.
[[nodiscard]] PartStatus readXMLMember(ZipContainer& container, std::string_view name, XMLHandler& handler,
                                       ContentSink& sink);

/// What a document's reading came to when its main part came to `status`.
[[nodiscard]] ReadResult resultOfMainPart(PartStatus status);

/// The member name that `target`, a relative or absolute reference with percent escapes, stands for in the
/// member `base`. Leading ".." components that have nothing to take away are dropped.
[[nodiscard]] std::string resolvedMemberName(std::string_view base, std::string_view target);
