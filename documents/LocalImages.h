#pragma once

#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/NSURL.h"

#include <filesystem>
#include <string>
#include <string_view>

/// The images that lie beside a document, or in a folder there. What a document names is untrusted: nothing
/// outside of its own folder is read, whatever links lead there, nor anything that is no image or PDF by its
/// name, and no more than a bound in all.
class LocalImages {
public:
    explicit LocalImages(const std::string& documentPath);

    /// The document's own URL, from which its relative ones start.
    [[nodiscard]] const NSURL& baseURL() const { return m_baseURL; }

    /// Null for every URL that is none of these images.
    [[nodiscard]] NSFileWrapper::Ref fileForURL(const std::string& url);
    /// The same for a target as it stands in the document: the name of a file, of whatever characters, else a
    /// URL.
    [[nodiscard]] NSFileWrapper::Ref fileForTarget(std::u16string_view target);

private:
    [[nodiscard]] NSFileWrapper::Ref fileAtPath(const std::filesystem::path& named);

    NSURL m_baseURL;
    std::filesystem::path m_folder;
    std::size_t m_room;
};
