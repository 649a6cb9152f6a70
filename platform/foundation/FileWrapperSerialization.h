#pragma once

#include "platform/foundation/NSFileWrapper.h"

/// File wrappers as bytes, in the platform's form; docs/keyed-archives.md has its layout.
class FileWrapperSerialization {
public:
    /// Null with the reason in `error` when `bytes` are no such form, whatever they are. Names that no file
    /// can have are left out of wrappers, and refused for members.
    [[nodiscard]] static NSFileWrapper::Ref read(std::string_view bytes, NSError* error);
    /// None, with the reason in `error`, when contents have 2 GiB or more, folders are nested too deep, or a
    /// member has a name that the form keeps for itself.
    [[nodiscard]] static std::optional<NSData> write(const NSFileWrapper& fileWrapper, NSError* error);

private:
    class Reader;
    class Writer;
};
