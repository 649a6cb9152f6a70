#pragma once

#include "platform/text/NSTextAttachment.h"

#include <string>
#include <string_view>

/// A file name percent-encoded as UTF-8, except for the characters that may stand in the path of a URL as
/// they are: letters, digits and !$&'()*+,-./:=@_~
[[nodiscard]] std::string percentEncodedForURLPath(std::u16string_view name);

/// `<img src="file:///%@" alt="%@">` and `<object data="file:///%@">%@</object>`, each filled with the
/// encoded name and the name. The second takes the name as it stands, nothing escaped: whoever looks for the
/// tag of a file in written HTML finds it by these same functions, character for character. A name with
/// quotation marks or angle brackets in it is therefore markup; it is for those who name the files to avoid
/// that.
[[nodiscard]] std::string htmlImageTag(std::u16string_view name);
[[nodiscard]] std::string htmlObjectTag(std::u16string_view name);

/// The tag of an attachment: htmlImageTag for files of image and PDF types, htmlObjectTag for other files. Of
/// an attachment without a file the image itself when its contents are one, else nothing.
[[nodiscard]] std::string htmlTagForAttachment(const NSTextAttachment& attachment);
