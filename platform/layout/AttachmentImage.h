#pragma once

#include <functional>
#include <memory>

class NSImage;
class NSTextAttachment;

/// The picture of an attachment that has no cell, or null when there is none to show. Asked for whenever the
/// attachment is measured and drawn: a provider that decodes keeps what it decoded.
using AttachmentImage = std::function<std::shared_ptr<const NSImage>(const NSTextAttachment&)>;
