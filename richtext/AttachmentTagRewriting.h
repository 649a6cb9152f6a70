#pragma once

#include "platform/text/NSTextAttachment.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

/// Attachments by the names of their files on disk.
using AttachmentsByName = std::map<std::u16string, std::shared_ptr<const NSTextAttachment>, std::less<>>;

/// A page of HTML, as the writer made it, with the tags of these attachments rewritten: an image's tag
/// becomes one that holds the image, the tag of any other file that has a type goes. The result is that of
/// replacing every occurrence of the tag of each name, one name after the other in their order.
[[nodiscard]] std::string htmlByRewritingAttachmentTags(std::string_view html,
                                                        const AttachmentsByName& attachments);
