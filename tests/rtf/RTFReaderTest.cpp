#include "platform/foundation/NSValue.h"
#include "platform/foundation/Unicode.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSShadow.h"
#include "platform/text/NSTextAttachment.h"

#include <gmock/gmock.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

using namespace std::string_literals;

namespace {

namespace Formats = NSAttributedStringDocumentFormats;

NSAttributedString read(std::string_view rtf)
{
    return Formats::initWithRTF({std::string(rtf)}).value_or(NSAttributedString(u"nothing"));
}

std::string textOf(std::string_view rtf)
{
    return UTF8FromUTF16(read(rtf).string());
}

/// A document of the platform with some fonts and colours.
std::string cocoa(std::string_view body)
{
    return "{\\rtf1\\ansi\\cocoartf2822{\\fonttbl\\f0\\fswiss\\fcharset0 Helvetica;\\f1\\fswiss\\fcharset0 "
           "Helvetica-Bold;\\f2\\froman\\fcharset0 No Such Font;}{\\colortbl;\\red255\\green255\\blue255;"
           "\\red255\\green0\\blue0;\\red0\\green0\\blue0;\\red0\\green0\\blue0;}{\\*\\expandedcolortbl;;\n;"
           "\\cssrgb\\c0\\c0\\c0\\cname textColor;\n\\cssrgb\\c0\\c50000\\c100000\\c0;}"
        + std::string(body) + "}";
}

NSAny attributeOf(std::string_view body, std::u16string_view name)
{
    return read(cocoa(body)).attribute(name, 0);
}

NSFont::Ref fontOf(std::string_view body)
{
    return attributeOf(body, NSFontAttributeName).object<NSFont>();
}

struct Case {
    std::string_view rtf;
    std::string_view text;
};

} // namespace

TEST(RTFReader, GivesTheText)
{
    constexpr auto kCases = std::to_array<Case>({
        {"{\\rtf1\\ansi Hello {\\b bold} world\\par Next}", "Hello bold world\nNext"},
        {"{\\rtf1 one\\\ntwo\\\r\nthree\\\rfour}", "one\ntwo\nthree\nfour"},
        {"{\\rtf1 no\r\nspace}", "nospace"},
        {"{\\rtf1 a\\tab b\\~c\\_d\\-e\\line f\\page g}", "a\tb\u00A0c\u2011de\u2028f\fg"},
        {"{\\rtf1 \\lquote q\\rquote  \\emdash  \\bullet }", "‘q’ — •"},
        {"{\\rtf1 \\{b\\} \\\\}", "{b} \\"},
        {"{\\rtf a}", "a"},
        {"\xEF\xBB\xBF \n{\\rtf1 mark}", "mark"},
        {"{\\rtf1 before}after", "before"},
        {"{\\rtf1 a\\sect b}", "a\nb"},
        {"{\\rtf1 end\\par}", "end\n"},
        {"{\\rtf1}", ""},
    });
    for (const auto& example : kCases)
        EXPECT_EQ(textOf(example.rtf), example.text) << example.rtf;
}

TEST(RTFReader, DecodesBytesByCodePage)
{
    constexpr auto kCases = std::to_array<Case>({
        {"{\\rtf1\\ansi caf\\'e9 \xE9}", "café é"},
        {"{\\rtf1\\ansi\\ansicpg1251 \\'ef\\'f0}", "пр"},
        {"{\\rtf1\\mac \\'8e}", "é"},
        {"{\\rtf1{\\fonttbl{\\f0\\fcharset204 A;}{\\f1\\fcharset0 B;}}\\f0\\'ef\\f1\\'ef}", "пï"},
        {"{\\rtf1{\\fonttbl\\f0\\fcharset128 A;}\\f0\\'93\\'fa\\'83\\\\}", "日ソ"},
        {"{\\rtf1{\\fonttbl\\f0\\fcharset134 A;}\\f0\\'c4\\'e3}", "你"},
        {"{\\rtf1{\\fonttbl\\f0\\ftech\\fcharset2 Symbol;}\\f0\\'b7 a}", "\uF0B7 a"},
        {"{\\rtf1\\ansicpg65001 \xC3\xA9}", "é"},
    });
    for (const auto& example : kCases)
        EXPECT_EQ(textOf(example.rtf), example.text) << example.rtf;
}

TEST(RTFReader, ReadsUnicodeAndPassesOverItsStandIns)
{
    constexpr auto kCases = std::to_array<Case>({
        {"{\\rtf1 \\u8804?b}", "≤b"},
        {"{\\rtf1\\uc0 \\u8804 b}", "≤b"},
        {"{\\rtf1\\uc2 \\u8804 abc}", "≤c"},
        {"{\\rtf1 \\u8804\\'3cb}", "≤b"},
        {"{\\rtf1\\uc0\\u55357 \\u56832 !}", "\U0001F600!"},
        {"{\\rtf1 \\u-10179 ?\\u-8704 ?!}", "\U0001F600!"},
        {"{\\rtf1\\uc0\\u55357 !}", "\uFFFD!"},
        {"{\\rtf1\\uc0\\u56832 !}", "\uFFFD!"},
        {"{\\rtf1\\uc0\\u70000 !}", "\uFFFD!"},
        {"{\\rtf1{\\uc0\\u8804 a}\\u8804 ab}", "≤a≤b"},
        {"{\\rtf1\\uc9{\\u8804}b}", "≤b"},
        {"{\\rtf1\\upr{a}{\\*\\ud b}}", "b"},
        {"{\\rtf1{\\upr{a}{\\*\\ud b}}c}", "bc"},
    });
    for (const auto& example : kCases)
        EXPECT_EQ(textOf(example.rtf), example.text) << example.rtf;
}

TEST(RTFReader, LeavesOutWhatIsNotTheText)
{
    constexpr auto kCases = std::to_array<Case>({
        {"{\\rtf1{\\stylesheet{\\s1 Heading;}}a}", "a"},
        {"{\\rtf1{\\*\\generator Writer;}{\\*\\unknown{\\b x}}a}", "a"},
        {"{\\rtf1{\\*\\panose 02}a{\\*\\bkmkstart n}b}", "ab"},
        {"{\\rtf1 a\\*\\cs7 b}", "ab"},
        {"{\\rtf1 a{\\v hidden}b}", "ab"},
        {"{\\rtf1{\\header h}{\\footerl f}a{\\footnote n}}", "a"},
        {"{\\rtf1{\\pict\\wmetafile8 010203}a}", "a"},
        {"{\\rtf1\\bin3 {}}a}", "a"},
        {"{\\rtf1{\\field{\\*\\fldinst PAGE}{\\fldrslt 7}}}", "7"},
        {"{\\rtf1{\\shp{\\*\\shpinst{\\sp{\\sn n}{\\sv v}}{\\shptxt box}}{\\shprslt old}}}", "box"},
        {"{\\rtf1{\\info{\\title T}}a}", "a"},
        {"{\\rtf1{{\\NeXTGraphic a.png \\width1 \\height1\n}\xAC}b}", "b"},
        {"{\\rtf1{{\\*\\NeXTGraphic a.png}\\'ac}b\xAC}", "b¬"},
    });
    for (const auto& example : kCases)
        EXPECT_EQ(textOf(example.rtf), example.text) << example.rtf;
}

TEST(RTFReader, KeepsWhatIsThereOfADocumentThatIsCutOff)
{
    constexpr auto kCases = std::to_array<Case>({
        {"{\\rtf1 a{\\b b", "ab"},
        {"{\\rtf1 a\\'", "a"},
        {"{\\rtf1 a\\'4", "a4"},
        {"{\\rtf1 a\\", "a"},
        {"{\\rtf1 a\\u", "a"},
        {"{\\rtf1 a\\bin99999999999 b", "a"},
    });
    for (const auto& example : kCases)
        EXPECT_EQ(textOf(example.rtf), example.text) << example.rtf;
}

TEST(RTFReader, RefusesWhatIsNoRichText)
{
    for (const auto* const bytes : {"", "{", "text", "{\\rt1 x}", "\\rtf1 x"}) {
        NSError error;
        EXPECT_FALSE(Formats::initWithRTF({bytes}, nullptr, &error)) << bytes;
        EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
        EXPECT_EQ(error.code(), static_cast<int>(NSCocoaError::FileReadCorruptFile));
        EXPECT_FALSE(Formats::initWithRTF({bytes}));
    }
}

TEST(RTFReader, FindsFonts)
{
    EXPECT_EQ(fontOf("x")->fontName(), u"Helvetica");
    EXPECT_EQ(fontOf("x")->pointSize(), 12);
    EXPECT_EQ(fontOf("\\f1\\fs29\\fsmilli14667 x")->pointSize(), 14.667);
    EXPECT_EQ(fontOf("\\f1\\b x")->fontName(), u"Helvetica-Bold");
    EXPECT_EQ(fontOf("\\f1\\b0 x")->fontName(), u"Helvetica-Bold");
    EXPECT_EQ(fontOf("\\f0\\b x")->fontName(), u"Helvetica-Bold");
    EXPECT_EQ(fontOf("\\f0\\i x")->fontName(), u"Helvetica-Oblique");
    EXPECT_EQ(fontOf("\\f0\\b\\i x")->fontName(), u"Helvetica-BoldOblique");
    EXPECT_EQ(fontOf("\\f2 x")->fontName(), u"Times-Roman");
    EXPECT_EQ(fontOf("\\f9 x")->fontName(), u"Helvetica");
    EXPECT_EQ(fontOf("\\f0\\fs0 x")->pointSize(), 12);
    EXPECT_EQ(fontOf("\\f1\\fs40\\plain x")->fontName(), u"Helvetica");
    EXPECT_EQ(fontOf("\\f1\\fs40\\plain x")->pointSize(), 12);
}

TEST(RTFReader, FindsFontsOfOtherWritersByTheirFamily)
{
    const auto nameOf = [](std::string_view table) {
        return read("{\\rtf1\\deff3{\\fonttbl" + std::string(table) + "}x}")
            .attribute(NSFontAttributeName, 0)
            .object<NSFont>()
            ->fontName();
    };
    EXPECT_EQ(nameOf("{\\f3\\froman\\fcharset0 Times New Roman;}"), u"TimesNewRomanPSMT");
    EXPECT_EQ(nameOf("{\\f3\\fnil\\fcharset0{\\*\\panose 020b}Courier New{\\*\\falt Other};}"),
              u"CourierNewPSMT");
    EXPECT_EQ(nameOf("{\\f3\\fmodern Nowhere Mono;}"), u"Courier");
    EXPECT_EQ(nameOf("{\\f3\\fswiss Nowhere Sans;}"), u"Helvetica");
    EXPECT_EQ(nameOf("{\\f3\\fswiss Courier}"), u"Courier");
}

TEST(RTFReader, ReadsColours)
{
    const auto color = [](std::string_view body) {
        return attributeOf(body, NSForegroundColorAttributeName).object<NSColor>();
    };
    EXPECT_FALSE(color("x"));
    EXPECT_FALSE(color("\\cf0 x"));
    EXPECT_TRUE(color("\\cf2 x")->isEqual(*NSColor::colorWithCalibratedRed(1, 0, 0, 1)));
    EXPECT_TRUE(color("\\cf3 x")->isEqual(*NSColor::textColor()));
    EXPECT_TRUE(color("\\cf4 x")->isEqual(*NSColor::colorWithSRGBRed(0, 0.5, 1, 0)));
    EXPECT_FALSE(color("\\cf99 x"));
    EXPECT_FALSE(color("\\cf-1 x"));
}

TEST(RTFReader, ReadsEachSpaceOfColours)
{
    const auto color = [](std::string_view entry) {
        return read("{\\rtf1\\cocoartf1{\\*\\expandedcolortbl;" + std::string(entry) + ";}\\cf1 x}")
            .attribute(NSForegroundColorAttributeName, 0)
            .object<NSColor>();
    };
    using Name = NSColorSpace::Name;
    const auto expected = [](Name name, const std::vector<double>& components) {
        return NSColor::colorWithColorSpace(NSColorSpace::colorSpaceWithName(name), components);
    };
    EXPECT_TRUE(
        color("\\cssrgb\\c10000\\c20000\\c30000")->isEqual(*expected(Name::SRGB, {0.1, 0.2, 0.3, 1})));
    EXPECT_TRUE(color("\\csgenericrgb\\c10000\\c20000\\c30000\\c40000")
                    ->isEqual(*expected(Name::GenericRGB, {0.1, 0.2, 0.3, 0.4})));
    EXPECT_TRUE(
        color("\\cspthree\\c10000\\c20000\\c30000")->isEqual(*expected(Name::DisplayP3, {0.1, 0.2, 0.3, 1})));
    EXPECT_TRUE(color("\\csgray\\c50000")->isEqual(*expected(Name::GenericGray, {0.5, 1})));
    EXPECT_TRUE(color("\\cscmyk\\c0\\c10000\\c20000\\c30000")
                    ->isEqual(*expected(Name::GenericCMYK, {0, 0.1, 0.2, 0.3, 1})));
    EXPECT_TRUE(
        color("\\cssrgb\\c0\\c0\\c0\\cname noSuchColor")->isEqual(*expected(Name::SRGB, {0, 0, 0, 1})));
    EXPECT_FALSE(color("\\cssrgb\\c0"));
    EXPECT_FALSE(color("\\csnowhere\\c0\\c0\\c0"));
}

TEST(RTFReader, TakesWhiteAndTransparentGroundsOfThePlatformForNone)
{
    EXPECT_FALSE(attributeOf("\\cb1 x", NSBackgroundColorAttributeName));
    EXPECT_FALSE(attributeOf("\\cb0 x", NSBackgroundColorAttributeName));
    EXPECT_FALSE(attributeOf("\\cb4 x", NSBackgroundColorAttributeName));
    EXPECT_TRUE(attributeOf("\\cb2 x", NSBackgroundColorAttributeName));
    const auto other = read("{\\rtf1{\\colortbl;\\red0\\green255\\blue0;}\\highlight1 x}");
    EXPECT_TRUE(other.attribute(NSBackgroundColorAttributeName, 0));
}

TEST(RTFReader, ReadsCharacterAttributes)
{
    struct Attribute {
        std::string_view rtf;
        std::u16string_view name;
        NSAny value;
    };

    const std::vector<Attribute> cases{
        {"\\ul x", NSUnderlineStyleAttributeName, 1},
        {"\\ulw x", NSUnderlineStyleAttributeName, 0x8001},
        {"\\uldb x", NSUnderlineStyleAttributeName, 9},
        {"\\ulth x", NSUnderlineStyleAttributeName, 2},
        {"\\uldashdd x", NSUnderlineStyleAttributeName, 0x401},
        {"\\ulthdash x", NSUnderlineStyleAttributeName, 0x202},
        {"\\ulstyle32777 x", NSUnderlineStyleAttributeName, 0x8009},
        {"\\ul\\ulnone x", NSUnderlineStyleAttributeName, {}},
        {"\\ul\\ul0 x", NSUnderlineStyleAttributeName, {}},
        {"\\ul\\ulc0 x", NSUnderlineColorAttributeName, {}},
        {"\\strike \\strikec0 x", NSStrikethroughStyleAttributeName, 1},
        {"\\striked1 x", NSStrikethroughStyleAttributeName, 9},
        {"\\strikestyle2 x", NSStrikethroughStyleAttributeName, 2},
        {"\\strikestyle2\\strike0\\striked0 x", NSStrikethroughStyleAttributeName, {}},
        {"\\strike\\strike0 x", NSStrikethroughStyleAttributeName, {}},
        {"\\up6 x", NSBaselineOffsetAttributeName, 3.0},
        {"\\dn4 x", NSBaselineOffsetAttributeName, -2.0},
        {"\\up6\\up0 x", NSBaselineOffsetAttributeName, {}},
        {"\\super x", NSSuperscriptAttributeName, 1},
        {"\\super2 x", NSSuperscriptAttributeName, 2},
        {"\\sub x", NSSuperscriptAttributeName, -1},
        {"\\sub\\nosupersub x", NSSuperscriptAttributeName, {}},
        {"\\kerning1\\expnd6\\expndtw30\nx", NSKernAttributeName, 1.5},
        {"\\expnd4 x", NSKernAttributeName, 1.0},
        {"\\expnd0\\expndtw0\\kerning0\nx", NSKernAttributeName, 0.0},
        {"\\expnd0\\expndtw0\\kerning0\n\\kerning1\\expnd0\\expndtw0 x", NSKernAttributeName, {}},
        {"\\expansion400 x", NSExpansionAttributeName, 0.2},
        {"\\obliqueness500 x", NSObliquenessAttributeName, 0.25},
        {"\\CocoaLigature0 x", NSLigatureAttributeName, 0},
        {"\\CocoaLigature0\\CocoaLigature1 x", NSLigatureAttributeName, {}},
        {"\\outl0\\strokewidth-60 \\strokec0 x", NSStrokeWidthAttributeName, -3.0},
        {"\\outl\\strokewidth40 x", NSStrokeWidthAttributeName, 2.0},
        {"\\outl\\outl0 x", NSStrokeWidthAttributeName, {}},
        {"\\AppleHighlight-1 \\AppleHilightClrSch-4 x", NSTextHighlightStyleAttributeName,
         NSTextHighlightStyleDefault},
        {"\\AppleHighlight-1 \\AppleHilightClrSch-4 x", NSTextHighlightColorSchemeAttributeName,
         NSTextHighlightColorSchemeMint},
        {"\\AppleHighlight-1 \\AppleHilightClrSch-77 x", NSTextHighlightColorSchemeAttributeName,
         NSTextHighlightColorSchemeDefault},
        {"\\AppleHighlight-1\\AppleHighlight0 x", NSTextHighlightStyleAttributeName, {}},
        {"\\ul\\b\\plain x", NSUnderlineStyleAttributeName, {}},
    };
    for (const auto& example : cases)
        EXPECT_EQ(attributeOf(example.rtf, example.name), example.value) << example.rtf;
}

TEST(RTFReader, ReadsNoKernFromPairsOfLettersOfOtherWriters)
{
    EXPECT_FALSE(read("{\\rtf1\\kerning0 x}").attribute(NSKernAttributeName, 0));
}

TEST(RTFReader, ReadsShadowsWithTheirOpacity)
{
    const NSShadow expected({2, -2}, 3, NSColor::colorWithCalibratedRed(1, 0, 0, 51.0 / 255));
    const auto shadow
        = attributeOf("\\shad\\shadx40\\shady-40\\shadr60\\shado51 \\shadc2 x", NSShadowAttributeName);
    ASSERT_TRUE(shadow.object<NSShadow>());
    EXPECT_TRUE(shadow.object<NSShadow>()->isEqual(expected));
    const auto usual = attributeOf("\\shad x", NSShadowAttributeName).object<NSShadow>();
    EXPECT_EQ(usual->shadowOffset(), (NSSize{3, -3}));
    EXPECT_FALSE(attributeOf("\\shad\\shad0 x", NSShadowAttributeName));
}

TEST(RTFReader, GivesGroupsBackWhatTheyHad)
{
    const auto text = read(cocoa("a{\\ul b}c"));
    EXPECT_FALSE(text.attribute(NSUnderlineStyleAttributeName, 0));
    EXPECT_TRUE(text.attribute(NSUnderlineStyleAttributeName, 1));
    EXPECT_FALSE(text.attribute(NSUnderlineStyleAttributeName, 2));
}

TEST(RTFReader, ReadsLinks)
{
    const auto link = [](std::string_view instruction) {
        return read(cocoa("{\\field{\\*\\fldinst{" + std::string(instruction) + "}}{\\fldrslt x}}"))
            .attribute(NSLinkAttributeName, 0);
    };
    EXPECT_EQ(link("HYPERLINK \"https://a.example/\""), NSAny(*NSURL::URLWithString("https://a.example/")));
    EXPECT_EQ(link("hyperlink bare.example rest"), NSAny(u"bare.example"));
    EXPECT_EQ(link("HYPERLINK \\\\l \"place\""), NSAny(u"#place"));
    EXPECT_EQ(link("HYPERLINK \"a:b\" \\\\l \"c\" \\\\o \"tip\" \\\\n"),
              NSAny(*NSURL::URLWithString("a:b#c")));
    EXPECT_EQ(link("HYPERLINK \"a\\{b\\}\""), NSAny(u"a{b}"));
    EXPECT_EQ(link(" HYPERLINK \"caf\\'e9\""), NSAny(u"café"));
    EXPECT_EQ(link("PAGE"), NSAny());
    EXPECT_EQ(link("HYPERLINK"), NSAny());
}

TEST(RTFReader, LinksTheResultOnly)
{
    const auto text = read(cocoa("a{\\field{\\*\\fldinst HYPERLINK \"x:y\"}{\\fldrslt b\\par c}}d"));
    EXPECT_EQ(text.string(), u"ab\ncd");
    EXPECT_FALSE(text.attribute(NSLinkAttributeName, 0));
    EXPECT_TRUE(text.attribute(NSLinkAttributeName, 1));
    EXPECT_TRUE(text.attribute(NSLinkAttributeName, 3));
    EXPECT_FALSE(text.attribute(NSLinkAttributeName, 4));
}

TEST(RTFReader, MakesAttachmentsOfPictures)
{
    const auto text = read("{\\rtf1 a{\\*\\shppict{\\pict\\pngblip\\picwgoal10 89 50\n4E47}}"
                           "{\\nonshppict{\\pict\\pngblip 00}}{\\pict\\jpegblip\\bin3 }{\\}b}");
    ASSERT_EQ(text.length(), 4U);
    const auto fileAt = [&text](NSUInteger location) {
        return text.attribute(NSAttachmentAttributeName, location)
            .mutableObject<NSTextAttachment>()
            ->fileWrapper();
    };
    EXPECT_EQ(fileAt(1)->regularFileContents()->bytes, "\x89PNG");
    EXPECT_EQ(fileAt(1)->preferredFilename(), u"Image 1.png");
    EXPECT_EQ(fileAt(2)->regularFileContents()->bytes, "}{\\");
    EXPECT_EQ(fileAt(2)->preferredFilename(), u"Image 2.jpeg");
    EXPECT_EQ(text.characterAtIndex(1), NSAttachmentCharacter);
    EXPECT_EQ(text.characterAtIndex(3), u'b');
}

TEST(RTFReader, GivesDocumentAttributes)
{
    NSAny::Dictionary attributes;
    ASSERT_TRUE(Formats::initWithRTF(
        {"{\\rtf1\\cocoartf2822{\\info{\\title T\\'e4tle \\u8804?}{\\author N}{\\keywords one, two}"
         "{\\*\\company C}{\\creatim\\yr2020}}\\paperw11900\\paperh16840\\margl1440\\vieww11520\\viewh8400"
         "\\viewkind1\\readonlydoc1\\hyphauto1\\hyphfactor90\\deftab720 x}"},
        &attributes));
    const auto sizeOf = [&attributes](std::u16string_view name) {
        return *attributes.at(std::u16string(name)).object<NSValue>()->get<NSSize>();
    };
    const auto valueOf = [&attributes](std::u16string_view name) { return attributes[std::u16string(name)]; };
    EXPECT_EQ(valueOf(NSDocumentTypeDocumentAttribute), NSAny(NSRTFTextDocumentType));
    EXPECT_EQ(valueOf(NSTitleDocumentAttribute), NSAny(u"Tätle ≤"));
    EXPECT_EQ(valueOf(NSAuthorDocumentAttribute), NSAny(u"N"));
    EXPECT_EQ(valueOf(NSKeywordsDocumentAttribute), NSAny(NSAny::Array{u"one", u"two"}));
    EXPECT_EQ(valueOf(NSCompanyDocumentAttribute), NSAny(u"C"));
    EXPECT_EQ(sizeOf(NSPaperSizeDocumentAttribute), (NSSize{595, 842}));
    EXPECT_EQ(sizeOf(NSViewSizeDocumentAttribute), (NSSize{576, 420}));
    EXPECT_EQ(valueOf(NSLeftMarginDocumentAttribute), NSAny(72.0));
    EXPECT_EQ(valueOf(NSRightMarginDocumentAttribute), NSAny());
    EXPECT_EQ(valueOf(NSViewModeDocumentAttribute), NSAny(1));
    EXPECT_EQ(valueOf(NSReadOnlyDocumentAttribute), NSAny(1));
    EXPECT_EQ(valueOf(NSHyphenationFactorDocumentAttribute), NSAny(0.9));
    EXPECT_EQ(valueOf(NSDefaultTabIntervalDocumentAttribute), NSAny(36.0));
    EXPECT_EQ(valueOf(NSCocoaVersionDocumentAttribute), NSAny(2822));
}

TEST(RTFReader, ReadsTitlesThatHaveAnAlternative)
{
    NSAny::Dictionary attributes;
    const auto text
        = Formats::initWithRTF({"{\\rtf1{\\info{\\upr{\\title old}{\\*\\ud{\\title new}}}}x}"}, &attributes);
    EXPECT_EQ(text->string(), u"x");
    EXPECT_EQ(attributes[std::u16string(NSTitleDocumentAttribute)], NSAny(u"new"));
}
