#pragma once

#include "platform/foundation/NSFileWrapper.h"
#include "platform/html/NSAttributedStringHTML.h"

#include <string>
#include <string_view>

/// The file of an image with this source: the one that a data URL holds, named as the image's description
/// where that is a name, or the one that the options have for the URL. Null for none of an image or PDF type.
[[nodiscard]] NSFileWrapper::Ref fileOfImage(std::string_view source, std::string_view description,
                                             const NSHTMLReadingOptions& options, const std::string& baseURL);
