#pragma once

#include "platform/foundation/NSURL.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

class SKDocument;
using SKDocumentRef = std::shared_ptr<const SKDocument>;

/// A reference to a document: a name under a parent, or under a scheme at the top. It says where a document
/// is, not that an index holds one there. Immutable and shared.
class SKDocument {
public:
    /// The document of a URL: a file URL is the path of names from the root. None for a URL without a scheme
    /// or path, or with an encoded NUL or slash in a component.
    [[nodiscard]] static SKDocumentRef createWithURL(const NSURL& url);

    /// A document `name` under `parent`. Without a parent `scheme` says which kind of URL it begins; with a
    /// parent it may be empty and is taken from the parent. The name may be empty: such a document has no
    /// name. None without both parent and scheme, or when `name` holds a NUL. A name with a slash in it stays
    /// one name, and its URL has the slash encoded, so that it never reaches a file below or beside its
    /// parent.
    [[nodiscard]] static SKDocumentRef create(std::string_view scheme, SKDocumentRef parent,
                                              std::string_view name);

    /// As `create`, for the engines: `schemePrefix` is what schemePrefix() of another document gave.
    [[nodiscard]] static SKDocumentRef createWithPrefix(std::string_view schemePrefix, SKDocumentRef parent,
                                                        std::string_view name);

    /// None for a document without a name.
    [[nodiscard]] std::optional<std::string> name() const;

    [[nodiscard]] const SKDocumentRef& parent() const { return m_parent; }

    /// The scheme with what precedes the first name: "file://".
    [[nodiscard]] const std::string& schemePrefix() const { return m_schemePrefix; }

    [[nodiscard]] NSURL URL() const;

private:
    SKDocument(std::string schemePrefix, SKDocumentRef parent, std::string name);

    std::string m_schemePrefix;
    SKDocumentRef m_parent;
    std::string m_name;
};

/// Whether an index holds a document.
enum class SKDocumentState { NotIndexed, Indexed };
