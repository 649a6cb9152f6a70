#pragma once

#include "platform/foundation/NSGeometry.h"
#include "platform/media/OfficePackage.h"
#include "platform/text/NSTextAttachment.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

/// The pictures of a document. They are met while its text is read and loaded when all of it is, so that no
/// picture costs the document its text. A picture that is shown twice is loaded once.
class WordPictures {
public:
    /// An attachment for a picture of the package, without its file; null beyond the bound of pictures. A
    /// size of nothing is the picture's own.
    [[nodiscard]] std::shared_ptr<NSTextAttachment> attachment(const std::string& member, NSSize size);
    /// Gives the attachments their files, within the limits of the sink. An attachment whose picture cannot
    /// be read stays without.
    void load(OfficePackage& package, ContentSink& sink);

private:
    std::map<std::string, std::vector<std::shared_ptr<NSTextAttachment>>> m_attachments;
    std::size_t m_count = 0;
};
