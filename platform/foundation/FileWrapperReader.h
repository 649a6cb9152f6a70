#pragma once

#include "platform/foundation/NSFileWrapper.h"

/// The extended attribute of files whose names are to be shown without their extensions; its value is "1".
inline constexpr const char* kExtensionHiddenAttribute = "user.corvel.extension-hidden";

/// Reads files and folders into wrappers, within the limits of NSFileWrapper. Nothing outside of the folder
/// is reached from it, whatever happens to it meanwhile: every member is opened from the folder's descriptor,
/// and links are not followed.
class FileWrapperReader {
public:
    [[nodiscard]] static NSFileWrapper::Ref read(const NSURL& url, NSError* error);

private:
    class Walk;

    static void setNames(NSFileWrapper& wrapper, std::string_view name);
};
