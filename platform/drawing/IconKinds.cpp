#include "platform/drawing/IconKinds.h"

#include "platform/drawing/IconGlyphs.h"
#include "platform/types/UTType.h"

#include <algorithm>
#include <array>

namespace {

// The special before the general: source code is text too, and some images are PDF documents as well.
constexpr auto kKinds = std::to_array<IconKind>({
    {"com.tessel.corvel.note", u"systemOrangeColor", IconGlyphs::note},
    {"public.image", u"systemTealColor", IconGlyphs::image},
    {"public.audio", u"systemPinkColor", IconGlyphs::audio},
    {"public.playlist", u"systemPinkColor", IconGlyphs::audio},
    {"public.audiovisual-content", u"systemPurpleColor", IconGlyphs::movie},
    {"com.adobe.pdf", u"systemRedColor", IconGlyphs::pages},
    {"com.adobe.postscript", u"systemRedColor", IconGlyphs::pages},
    {"org.djvu.djvu", u"systemRedColor", IconGlyphs::pages},
    {"com.microsoft.oxps", u"systemRedColor", IconGlyphs::pages},
    {"org.idpf.epub-container", u"systemBrownColor", IconGlyphs::book},
    {"com.mobipocket.book", u"systemBrownColor", IconGlyphs::book},
    {"public.spreadsheet", u"systemGreenColor", IconGlyphs::spreadsheet},
    {"public.delimited-values-text", u"systemGreenColor", IconGlyphs::spreadsheet},
    {"public.presentation", u"systemOrangeColor", IconGlyphs::presentation},
    {"public.message", u"systemBlueColor", IconGlyphs::mail},
    {"org.ietf.mbox", u"systemBlueColor", IconGlyphs::mail},
    {"public.contact", u"systemBrownColor", IconGlyphs::contact},
    {"public.calendar-event", u"systemRedColor", IconGlyphs::calendar},
    {"public.html", u"systemBlueColor", IconGlyphs::web},
    {"com.apple.webarchive", u"systemBlueColor", IconGlyphs::web},
    {"org.ietf.mhtml", u"systemBlueColor", IconGlyphs::web},
    {"public.source-code", u"systemIndigoColor", IconGlyphs::sourceCode},
    {"public.xml", u"systemIndigoColor", IconGlyphs::sourceCode},
    {"public.json", u"systemIndigoColor", IconGlyphs::sourceCode},
    {"public.yaml", u"systemIndigoColor", IconGlyphs::sourceCode},
    {"io.toml.toml", u"systemIndigoColor", IconGlyphs::sourceCode},
    {"public.configuration-text", u"systemIndigoColor", IconGlyphs::sourceCode},
    {"public.patch-file", u"systemIndigoColor", IconGlyphs::sourceCode},
    {"public.font", u"systemGrayColor", IconGlyphs::font},
    {"public.archive", u"systemBrownColor", IconGlyphs::archive},
    {"public.executable", u"systemGrayColor", IconGlyphs::program},
    {"public.database", u"systemGrayColor", IconGlyphs::database},
    {"public.rtf", u"systemBlueColor", IconGlyphs::richText},
    {"com.apple.rtfd", u"systemBlueColor", IconGlyphs::richText},
    {"com.microsoft.word.doc", u"systemBlueColor", IconGlyphs::richText},
    {"org.openxmlformats.wordprocessingml.document", u"systemBlueColor", IconGlyphs::richText},
    {"org.oasis-open.opendocument.text", u"systemBlueColor", IconGlyphs::richText},
    {"public.text", u"systemGrayColor", IconGlyphs::text},
    {"", u"systemGrayColor", IconGlyphs::none},
});

} // namespace

const IconKind& iconKindOfType(const UTType& type)
{
    const auto isOfType = [&](const IconKind& kind) { return type.conformsToType(kind.typeIdentifier); };
    const auto* found = std::find_if(kKinds.begin(), kKinds.end(), isOfType);
    return found == kKinds.end() ? kKinds.back() : *found;
}
