#pragma once

#include "platform/foundation/NSError.h"

#include <memory>
#include <string_view>

inline constexpr std::string_view CVLNoteFileErrorDomain = "CVLNoteFileErrorDomain";
inline constexpr int CVLNoteFileInvalidFormatErrorCode = 10001;
inline constexpr int CVLNoteFileRecoverFromRTFDErrorCode = 10002;

/// 10001, "Note file is not a file package."
[[nodiscard]] NSError noPackageError();
/// 10002, "The note file could not be read.", though the package's RTFD part may be.
[[nodiscard]] NSError recoverableError();
/// Whether the error is that one.
[[nodiscard]] bool isRecoverable(const NSError& error);
/// 10001, "File is not a valid note file.", for that reason.
[[nodiscard]] NSError invalidNoteError(NSError underlying);
