#pragma once

#include "platform/text/NSAppearance.h"
#include "platform/text/NSColor.h"

class CVLNoteFile;

/// What a note is drawn on.
struct NoteLook {
    NSColor::Ref backgroundColor;
    NSAppearance appearance = NSAppearance::Light;
};

/// The note's own background with the appearance whose text can be read on it; without one, that of text in
/// the appearance wanted.
[[nodiscard]] NoteLook lookOfNote(const CVLNoteFile& note, NSAppearance wanted);
