#include "platform/drawing/IconKinds.h"

#include "platform/drawing/IconGlyphs.h"
#include "platform/types/TypeDeclarations.h"
#include "platform/types/UTType.h"

#include <gtest/gtest.h>

namespace {

const IconKind& kindOf(std::string_view identifier)
{
    return iconKindOfType(UTType::typeWithIdentifier(identifier).value());
}

TEST(IconKinds, TellTypesApart)
{
    struct Case {
        std::string_view identifier;
        SymbolParts (*glyph)();
    };

    for (const auto& [identifier, glyph] : {
             Case{"com.tessel.corvel.note", IconGlyphs::note},
             Case{"public.plain-text", IconGlyphs::text},
             Case{"net.daringfireball.markdown", IconGlyphs::text},
             Case{"public.rtf", IconGlyphs::richText},
             Case{"com.apple.rtfd", IconGlyphs::richText},
             Case{"com.microsoft.word.doc", IconGlyphs::richText},
             Case{"org.openxmlformats.wordprocessingml.document", IconGlyphs::richText},
             Case{"org.oasis-open.opendocument.text", IconGlyphs::richText},
             Case{"com.adobe.pdf", IconGlyphs::pages},
             Case{"com.adobe.postscript", IconGlyphs::pages},
             Case{"public.png", IconGlyphs::image},
             Case{"public.mp3", IconGlyphs::audio},
             Case{"public.m3u-playlist", IconGlyphs::audio},
             Case{"public.mpeg-4", IconGlyphs::movie},
             Case{"public.zip-archive", IconGlyphs::archive},
             Case{"public.iso-image", IconGlyphs::archive},
             Case{"org.openxmlformats.spreadsheetml.sheet", IconGlyphs::spreadsheet},
             Case{"public.comma-separated-values-text", IconGlyphs::spreadsheet},
             Case{"org.oasis-open.opendocument.presentation", IconGlyphs::presentation},
             Case{"public.email-message", IconGlyphs::mail},
             Case{"org.ietf.mbox", IconGlyphs::mail},
             Case{"public.python-script", IconGlyphs::sourceCode},
             Case{"public.json", IconGlyphs::sourceCode},
             Case{"public.html", IconGlyphs::web},
             Case{"public.vcard", IconGlyphs::contact},
             Case{"com.apple.ical.ics", IconGlyphs::calendar},
             Case{"org.idpf.epub-container", IconGlyphs::book},
             Case{"public.truetype-ttf-font", IconGlyphs::font},
             Case{"public.elf-executable", IconGlyphs::program},
             Case{"org.sqlite.database", IconGlyphs::database},
             Case{"public.data", IconGlyphs::none},
             Case{"com.apple.package", IconGlyphs::none},
         })
        EXPECT_EQ(kindOf(identifier).glyph, glyph) << identifier;
}

TEST(IconKinds, TakeTypesOfTwoKindsForTheMoreTelling)
{
    EXPECT_EQ(kindOf("public.svg-image").glyph, IconGlyphs::image);
    EXPECT_EQ(kindOf("com.adobe.illustrator.ai-image").glyph, IconGlyphs::image);
    EXPECT_EQ(kindOf("com.sun.java-archive").glyph, IconGlyphs::archive);
}

TEST(IconKinds, KnowTypesThatAreDeclaredNowhere)
{
    EXPECT_EQ(iconKindOfType(UTType::typeWithMIMEType("image/x-never-heard-of").value()).glyph,
              IconGlyphs::image);
    EXPECT_EQ(iconKindOfType(UTType::typeWithMIMEType("text/x-never-heard-of").value()).glyph,
              IconGlyphs::text);
    EXPECT_EQ(iconKindOfType(UTType::typeWithMIMEType("application/x-never-heard-of").value()).glyph,
              IconGlyphs::none);
}

TEST(IconKinds, HaveColoursOfTheSystemAndGlyphsWithinTheirSquare)
{
    for (const auto& declaration : typeDeclarations()) {
        const auto& kind = kindOf(declaration.identifier);
        EXPECT_NE(NSColor::systemColorNamed(kind.colorName), nullptr) << declaration.identifier;
        for (const auto& part : kind.glyph()) {
            const auto pen = part.ink == SymbolPart::Ink::Stroke ? part.path.lineWidth() / 2 : 0;
            const auto bounds = NSInsetRect(part.path.bounds(), -pen, -pen);
            EXPECT_GE(bounds.origin.x, 0) << declaration.identifier;
            EXPECT_GE(bounds.origin.y, 0) << declaration.identifier;
            EXPECT_LE(bounds.origin.x + bounds.size.width, IconGlyphs::kIconGlyphSide + 0.1);
            EXPECT_LE(bounds.origin.y + bounds.size.height, IconGlyphs::kIconGlyphSide + 0.1);
            EXPECT_LE(part.paletteIndex, 1U);
        }
    }
}

} // namespace
