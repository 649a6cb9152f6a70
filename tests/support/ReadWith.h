#pragma once

#include "platform/media/ContentReader.h"

#include <string_view>
#include <utility>

/// What `reader` makes of `bytes`.
[[nodiscard]] inline Content readWith(ContentReader reader, std::string_view bytes,
                                      const ContentLimits& limits = {})
{
    ContentSource source;
    source.bytes = bytes;
    ContentSink sink(limits);
    auto result = reader(source, sink);
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
