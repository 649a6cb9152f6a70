#include "rendering/NoteLook.h"

#include "colours/ColourEquality.h"
#include "note/CVLNoteFile.h"

NoteLook lookOfNote(const CVLNoteFile& note, NSAppearance wanted)
{
    auto color = note.backgroundColor();
    if (!color || color->isEqual(*NSColor::textBackgroundColor()))
        return {NSColor::textBackgroundColor(), wanted};
    const auto isDark = CVLExtensions::isDarkColorCorvel(*color, wanted);
    return {std::move(color), isDark ? NSAppearance::Dark : NSAppearance::Light};
}
