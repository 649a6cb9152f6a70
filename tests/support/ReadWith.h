#pragma once

#include "platform/media/ContentReader.h"

#include <string_view>
#include <utility>

[[nodiscard]] inline ContentSource sourceOfBytes(std::string_view bytes, std::string_view typeIdentifier = {})
{
    ContentSource source;
    source.bytes = bytes;
    source.typeIdentifier = typeIdentifier;
    return source;
}

[[nodiscard]] inline ContentSource sourceOfFile(int fileDescriptor, std::string_view typeIdentifier = {})
{
    ContentSource source;
    source.fileDescriptor = fileDescriptor;
    source.typeIdentifier = typeIdentifier;
    return source;
}

/// What `reader` makes of `bytes`.
[[nodiscard]] inline Content readWith(ContentReader reader, std::string_view bytes,
                                      const ContentLimits& limits = {})
{
    ContentSink sink(limits);
    auto result = reader(sourceOfBytes(bytes), sink);
    return sink.takeContent(result.status, std::move(result.reason));
}

/// The value of the first field with this name; empty when there is none.
[[nodiscard]] inline std::string_view fieldOf(const Content& content, std::string_view name)
{
    for (const auto& field : content.fields) {
        if (field.name == name)
            return field.value;
    }
    return {};
}
