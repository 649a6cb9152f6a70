#pragma once

#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSTextAttachment.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

/// The document of an RTFD package.
inline constexpr std::u16string_view kRTFDDocumentName = u"TXT.rtf";

/// The files of a package that is being read, by the names in its document.
class RTFPackageMembers {
public:
    explicit RTFPackageMembers(const NSFileWrapper& package);

    /// The file or folder of that name in the package; canonically equivalent names are the same. Null for
    /// the document itself, for links, and for every name that no member has, such as one with a slash or
    /// "..".
    [[nodiscard]] NSFileWrapper::Ref memberNamed(std::string_view name) const;

private:
    const NSFileWrapper& m_package;
    /// By their composed names, of those whose own is another.
    std::map<std::u16string, NSFileWrapper::Ref, std::less<>> m_composed;
};

/// A package that is being written: the files of attachments, each once, under names of their own.
class RTFPackageBuilder {
public:
    RTFPackageBuilder();

    /// The name of the attachment's file in the package; empty when there is nothing to write.
    [[nodiscard]] std::string nameOf(const NSTextAttachment& attachment);

    /// The package, with its document.
    [[nodiscard]] NSFileWrapper::Ref finish(std::string document);

private:
    NSFileWrapper::Ref m_package;
    std::unordered_map<const void*, std::string> m_names;
};
