#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSColor.h"

/// What a note package is written from.
struct NotePackageSource {
    NSAttributedString noteText{};
    bool showSmallImages = false;
    /// Null for none.
    NSColor::Ref backgroundColor{};
    /// Nil for none.
    NSAny drawingDataByAttachmentKey{};
};

/// The note as a package: the RTFD document of its exportable text, with the note's own members laid on top.
/// Null, with the reason in `error`, when one of the texts cannot be written. Files of the text become
/// members as they are: nothing of the note is changed, so that notes which share files may be written on
/// several threads.
[[nodiscard]] NSFileWrapper::Ref notePackage(const NotePackageSource& source, NSError* error);
