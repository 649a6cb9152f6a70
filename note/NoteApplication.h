#pragma once

#include "platform/foundation/NSFileWrapper.h"

#include <optional>
#include <string>

/// The program that wrote a note's package, as its NoteAttributes say. Notes do not keep it: the next writer
/// puts itself there.
struct NoteApplication {
    std::optional<std::u16string> identifier{};
    std::optional<std::u16string> version{};

    /// Neither is known when there are no attributes that can be read, or when they say nothing.
    [[nodiscard]] static NoteApplication applicationOfPackage(const NSFileWrapper& package);
};
