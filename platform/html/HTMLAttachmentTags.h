#pragma once

#include "platform/text/NSTextAttachment.h"

#include <string>
#include <string_view>

/// A file name percent-encoded as UTF-8, except for the characters that may stand in the path of a URL as
/// they are: letters, digits and !$&'()*+,-./:=@_~
[[nodiscard]] std::string percentEncodedForURLPath(std::u16string_view name);

/// A name as it stands in tags: as it is, but for quotation marks and angle brackets, which are references,
/// so that no file can bring markup into a page by its name.
[[nodiscard]] std::string htmlNameInTag(std::u16string_view name);

/// `<img src="file:///%@" alt="%@">` and `<object data="file:///%@">%@</object>`, each filled with the
/// encoded name and htmlNameInTag. Whoever looks for the tag of a file in written HTML finds it by these same
/// functions, character for character.
[[nodiscard]] std::string htmlImageTag(std::u16string_view name);
[[nodiscard]] std::string htmlObjectTag(std::u16string_view name);

/// The tag of an attachment: htmlImageTag for files of image and PDF types, htmlObjectTag for other files. Of
/// an attachment without a file the image itself when its contents are one, else nothing.
[[nodiscard]] std::string htmlTagForAttachment(const NSTextAttachment& attachment);
