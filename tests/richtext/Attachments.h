#pragma once

#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSTextAttachment.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

/// A file as it was read from disk: with a name there, which is the preferred one too.
[[nodiscard]] inline NSFileWrapper::Ref makeFile(std::u16string_view name, std::string bytes = "contents")
{
    auto file = NSFileWrapper::initRegularFileWithContents({std::move(bytes)});
    file->setFilename(std::u16string(name));
    file->setPreferredFilename(std::u16string(name));
    return file;
}

/// Its type is that of the name's extension.
[[nodiscard]] inline std::shared_ptr<NSTextAttachment> makeAttachment(std::u16string_view name,
                                                                      std::string bytes = "contents")
{
    return NSTextAttachment::initWithFileWrapper(makeFile(name, std::move(bytes)));
}
