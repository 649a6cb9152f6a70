#include "platform/foundation/NSValue.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSShadow.h"
#include "platform/text/NSTextAttachment.h"

#include <gmock/gmock.h>

#include <array>
#include <string>
#include <string_view>

using testing::HasSubstr;
using testing::Not;

namespace {

namespace Formats = NSAttributedStringDocumentFormats;

std::string written(const NSAttributedString& text, const NSAny::Dictionary& documentAttributes = {})
{
    const auto data = Formats::RTFFromRange(text, {0, text.length()}, documentAttributes);
    return data ? data->bytes : "nothing";
}

NSAttributes with(std::u16string_view name, NSAny value)
{
    return {{std::u16string(name), std::move(value)}};
}

/// What is written of a word that has the attribute, between plain words.
std::string writtenWord(std::u16string_view name, const NSAny& value)
{
    NSMutableAttributedString text;
    text.appendAttributedString(NSAttributedString(u"a"));
    text.appendAttributedString(NSAttributedString(u"X", with(name, value)));
    text.appendAttributedString(NSAttributedString(u"b"));
    const auto document = written(text);
    const auto start = document.find("\\cf0 a");
    return start == std::string::npos ? document : document.substr(start + 6);
}

std::string writtenParagraph(const NSMutableParagraphStyle& style)
{
    const auto document
        = written(NSAttributedString(u"x", with(NSParagraphStyleAttributeName, NSAny(style.copy()))));
    const auto start = document.find("\\pard");
    return document.substr(start, document.find("\\partightenfactor0", start) - start);
}

/// A style that says nothing: its words are the bare \pard.
NSMutableParagraphStyle bareStyle()
{
    NSMutableParagraphStyle style;
    style.setTabStops({});
    style.setBaseWritingDirection(NSWritingDirection::LeftToRight);
    style.setAlignment(NSTextAlignment::Left);
    return style;
}

} // namespace

TEST(RTFWriter, WritesTextWithoutAttributesInTheDefaultFont)
{
    EXPECT_EQ(written(NSAttributedString(u"Hi")),
              "{\\rtf1\\ansi\\ansicpg1252\\cocoartf2822\n"
              "\\cocoatextscaling0\\cocoaplatform0{\\fonttbl\\f0\\fswiss\\fcharset0 Helvetica;}\n"
              "{\\colortbl;\\red255\\green255\\blue255;}\n"
              "{\\*\\expandedcolortbl;;}\n"
              "\n\\f0\\fs24 \\cf0 Hi}");
}

TEST(RTFWriter, WritesTheDefaultParagraphStyleAsThePlatformDoes)
{
    const auto style = NSParagraphStyle::defaultParagraphStyle();
    EXPECT_THAT(written(NSAttributedString(u"a\nb", with(NSParagraphStyleAttributeName, style))),
                HasSubstr("\\pard\\tx560\\tx1120\\tx1680\\tx2240\\tx2800\\tx3360\\tx3920\\tx4480\\tx5040"
                          "\\tx5600\\tx6160\\tx6720\\pardirnatural\\partightenfactor0\n"
                          "\n\\f0\\fs24 \\cf0 a\\\nb}"));
}

TEST(RTFWriter, WritesNothingBetweenTheBracesOfAnEmptyText)
{
    EXPECT_THAT(written(NSAttributedString()), testing::EndsWith("{\\*\\expandedcolortbl;;}\n}"));
}

TEST(RTFWriter, WritesTheRangeOnly)
{
    const NSAttributedString text(u"one two three");
    EXPECT_THAT(Formats::RTFFromRange(text, {4, 3})->bytes, testing::EndsWith("\\cf0 two}"));
    EXPECT_THAT(Formats::RTFFromRange(text, {8, 100})->bytes, testing::EndsWith("\\cf0 three}"));
}

TEST(RTFWriter, WritesOnlyAsRichText)
{
    NSError error;
    EXPECT_FALSE(Formats::RTFFromRange(
        NSAttributedString(u"x"), {0, 1},
        {{std::u16string(NSDocumentTypeDocumentAttribute), NSHTMLTextDocumentType}}, &error));
    EXPECT_EQ(error.code(), static_cast<int>(NSCocoaError::FileWriteInapplicableStringEncoding));
    EXPECT_TRUE(
        Formats::RTFFromRange(NSAttributedString(u"x"), {0, 1},
                              {{std::u16string(NSDocumentTypeDocumentAttribute), NSRTFTextDocumentType}}));
}

TEST(RTFWriter, EscapesWhatIsNotASCII)
{
    struct Case {
        std::u16string_view text;
        std::string_view rtf;
    };

    constexpr auto kCases = std::to_array<Case>({
        {u"a\\b{c}", "a\\\\b\\{c\\}"},
        {u"caf\u00E9 \u201Cq\u201D \u20AC", "caf\\'e9 \\'93q\\'94 \\'80"},
        {u"\u0178\u00A0\u00FF", "\\'9f\\'a0\\'ff"},
        {u"\u0081", "\\uc0\\u129 "},
        {u"\u2264 b \u2265c", "\\uc0\\u8804  b \\u8805 c"},
        {u"\U0001F600", "\\uc0\\u55357 \\u56832 "},
        {u"\xD83D!", "\\uc0\\u65533 !"},
        {u"\xDE00", "\\uc0\\u65533 "},
        {u"a\tb", "a\tb"},
        {u"a\u2028b", "a\\line b"},
        {u"a\fb", "a\\page b"},
        {u"\x01\x7F", "\\'01\\'7f"},
        {u"a\nb", "a\\\nb"},
        {u"a\r\nb", "a\\\nb"},
        {u"a\rb\u2029c", "a\\\nb\\\nc"},
        {u"a\n", "a\\\n"},
    });
    for (const auto& example : kCases)
        EXPECT_THAT(written(NSAttributedString(std::u16string(example.text))),
                    testing::EndsWith("\\cf0 " + std::string(example.rtf) + "}"))
            << example.rtf;
}

TEST(RTFWriter, WritesFontsOnLinesOfTheirOwn)
{
    const auto wordIn = [](std::u16string_view name, double size) {
        return writtenWord(NSFontAttributeName, NSFont::fontWithName(name, size));
    };
    EXPECT_EQ(wordIn(u"Helvetica-Bold", 12), "\n\\f1\\b X\n\\f0\\b0 b}");
    EXPECT_EQ(wordIn(u"Helvetica-Oblique", 12), "\n\\f1\\i X\n\\f0\\i0 b}");
    EXPECT_EQ(wordIn(u"Helvetica", 13), "\n\\fs26 X\n\\fs24 b}");
    EXPECT_EQ(wordIn(u"Helvetica", 14.667), "\n\\fs29\\fsmilli14667 X\n\\fs24 b}");
}

TEST(RTFWriter, NamesEachFontOnceWithItsKind)
{
    NSMutableAttributedString text;
    for (const auto* name : {u"Helvetica", u"Times-Roman", u"Menlo-Regular", u"HelveticaNeue", u"Helvetica"})
        text.appendAttributedString(
            NSAttributedString(u"x", with(NSFontAttributeName, NSFont::fontWithName(name, 12))));
    EXPECT_THAT(written(text),
                HasSubstr("{\\fonttbl\\f0\\fswiss\\fcharset0 Helvetica;\\f1\\froman\\fcharset0 Times-Roman;"
                          "\\f2\\fmodern\\fcharset0 Menlo-Regular;\\f3\\fnil\\fcharset0 HelveticaNeue;}\n"));
}

TEST(RTFWriter, WritesCharacterAttributes)
{
    struct Case {
        std::u16string_view name;
        NSAny value;
        std::string_view rtf;
    };

    const std::vector<Case> cases{
        {NSUnderlineStyleAttributeName, 1, "\\ul \\ulc0 X\\ulnone b}"},
        {NSUnderlineStyleAttributeName, 9, "\\uldb \\ulc0 X\\ulnone b}"},
        {NSUnderlineStyleAttributeName, 2, "\\ulth \\ulc0 X\\ulnone b}"},
        {NSUnderlineStyleAttributeName, 0x8001, "\\ulw \\ulc0 X\\ulnone b}"},
        {NSUnderlineStyleAttributeName, 0x101, "\\uld \\ulc0 X\\ulnone b}"},
        {NSUnderlineStyleAttributeName, 0x402, "\\ulthdashdd \\ulc0 X\\ulnone b}"},
        {NSUnderlineStyleAttributeName, 0x8009, "\\ulstyle32777 \\ulc0 X\\ulnone b}"},
        {NSStrikethroughStyleAttributeName, 1, "\\strike \\strikec0 X\\strike0\\striked0 b}"},
        {NSStrikethroughStyleAttributeName, 9, "\\striked1 \\strikec0 X\\strike0\\striked0 b}"},
        {NSStrikethroughStyleAttributeName, 2, "\\strikestyle2 \\strikec0 X\\strike0\\striked0 b}"},
        {NSBaselineOffsetAttributeName, 3.0, "\\up6 X\\up0 b}"},
        {NSBaselineOffsetAttributeName, -2.0, "\\dn4 X\\up0 b}"},
        {NSSuperscriptAttributeName, 1, "\\super X\\nosupersub b}"},
        {NSSuperscriptAttributeName, 2, "\\super2 X\\nosupersub b}"},
        {NSSuperscriptAttributeName, -1, "\\sub X\\nosupersub b}"},
        {NSKernAttributeName, 1.5, "\\kerning1\\expnd6\\expndtw30\nX\\kerning1\\expnd0\\expndtw0 b}"},
        {NSKernAttributeName, 0.0, "\\expnd0\\expndtw0\\kerning0\nX\\kerning1\\expnd0\\expndtw0 b}"},
        {NSExpansionAttributeName, 0.2, "\\expansion400 X\\expansion0 b}"},
        {NSObliquenessAttributeName, 0.25, "\\obliqueness500 X\\obliqueness0 b}"},
        {NSLigatureAttributeName, 0, "\\CocoaLigature0 X\\CocoaLigature1 b}"},
        {NSStrokeWidthAttributeName, -3.0,
         "\\outl0\\strokewidth-60 \\strokec0 X\\outl0\\strokewidth0 \\strokec0 b}"},
        {NSStrokeWidthAttributeName, 3.0,
         "\\outl\\strokewidth60 \\strokec0 X\\outl0\\strokewidth0 \\strokec0 b}"},
    };
    for (const auto& example : cases)
        EXPECT_EQ(writtenWord(example.name, example.value), example.rtf) << example.rtf;
}

TEST(RTFWriter, LeavesOutWhatRTFHasNoFormFor)
{
    EXPECT_EQ(writtenWord(NSToolTipAttributeName, u"tip"), "Xb}");
    EXPECT_EQ(writtenWord(NSTextEffectAttributeName, u"effect"), "Xb}");
    EXPECT_EQ(writtenWord(NSVerticalGlyphFormAttributeName, 1), "Xb}");
}

TEST(RTFWriter, WritesColoursInBothTables)
{
    const auto document = written(NSAttributedString(
        u"x", with(NSForegroundColorAttributeName, NSColor::colorWithCalibratedRed(0.2, 0.4, 0.6, 1))));
    EXPECT_THAT(document,
                HasSubstr("{\\colortbl;\\red255\\green255\\blue255;\\red51\\green102\\blue153;}\n"
                          "{\\*\\expandedcolortbl;;\\csgenericrgb\\c20000\\c40000\\c60000;}\n"));
    EXPECT_THAT(document, HasSubstr("\\cf2 x"));
}

TEST(RTFWriter, WritesTheColoursOfTheTableForAllReadersInGenericRGB)
{
    // The red of the platform's palette, which its own documents have as 251, 2, 7 there.
    const auto document = written(NSAttributedString(
        u"x", with(NSForegroundColorAttributeName, NSColor::colorWithSRGBRed(1, 0.14913, 0, 1))));
    EXPECT_THAT(document, HasSubstr("\\red251\\green"));
    EXPECT_THAT(document, HasSubstr("\\blue7;"));
    EXPECT_THAT(document, HasSubstr("\\cssrgb\\c100000\\c14913\\c0;"));
}

TEST(RTFWriter, WritesEachSpaceOfColours)
{
    struct Case {
        NSColor::Ref color;
        std::string_view entry;
    };

    const std::vector<Case> cases{
        {NSColor::colorWithDeviceRed(0, 0.5, 1, 0.5), "\\cssrgb\\c0\\c50000\\c100000\\c50000;"},
        {NSColor::colorWithCalibratedRed(0.25, 0, 1, 1), "\\csgenericrgb\\c25000\\c0\\c100000;"},
        {NSColor::colorWithDisplayP3Red(0.1, 0.2, 0.3, 1), "\\cspthree\\c10000\\c20000\\c30000;"},
        {NSColor::blackColor(), "\\csgray\\c0;"},
        {NSColor::colorWithDeviceCyan(0.1, 0.2, 0.3, 0.4, 1), "\\cscmyk\\c10000\\c20000\\c30000\\c40000;"},
        {NSColor::textColor(), "\\cssrgb\\c0\\c0\\c0\\cname textColor;"},
        {NSColor::secondaryLabelColor(), "\\cssrgb\\c0\\c0\\c0\\c49804\\cname secondaryLabelColor;"},
        {NSColor::colorWithCatalogName(u"Assets", u"Leaf", NSColor::colorWithSRGBRed(0, 1, 0, 1)),
         "\\cssrgb\\c0\\c100000\\c0;"},
    };
    for (const auto& example : cases)
        EXPECT_THAT(written(NSAttributedString(u"x", with(NSForegroundColorAttributeName, example.color))),
                    HasSubstr("{\\*\\expandedcolortbl;;" + std::string(example.entry) + "}"))
            << example.entry;
}

TEST(RTFWriter, EndsGroundsWithTheNumberOfWhite)
{
    const auto yellow = NSColor::colorWithSRGBRed(1, 1, 0, 1);
    EXPECT_EQ(writtenWord(NSBackgroundColorAttributeName, yellow), "\\cb2 X\\cb1 b}");
    EXPECT_EQ(writtenWord(NSForegroundColorAttributeName, yellow), "\\cf2 X\\cf0 b}");
    EXPECT_EQ(writtenWord(NSBackgroundColorAttributeName, NSColor::whiteColor()), "\\cb2 X\\cb1 b}");
}

TEST(RTFWriter, WritesShadowsWithTheirOpacity)
{
    const auto shadow
        = std::make_shared<const NSShadow>(NSSize{2, -2}, 3, NSColor::colorWithSRGBRed(1, 0, 0, 128.0 / 255));
    EXPECT_EQ(writtenWord(NSShadowAttributeName, shadow),
              "\\shad\\shadx40\\shady-40\\shadr60\\shado128 \\shadc2 X\\shad0 b}");
    const auto none = std::make_shared<const NSShadow>(NSSize{2, -2}, 3, nullptr);
    EXPECT_EQ(writtenWord(NSShadowAttributeName, none), "Xb}");
}

TEST(RTFWriter, WritesThePlatformsHighlights)
{
    const auto highlighted = [](std::u16string_view scheme) {
        auto attributes = with(NSTextHighlightStyleAttributeName, NSTextHighlightStyleDefault);
        attributes.emplace(NSTextHighlightColorSchemeAttributeName, scheme);
        return written(NSAttributedString(u"x", attributes));
    };

    struct Case {
        std::u16string_view scheme;
        std::string_view number;
    };

    constexpr auto kCases = std::to_array<Case>({
        {NSTextHighlightColorSchemeDefault, "0"},
        {NSTextHighlightColorSchemePurple, "-1"},
        {NSTextHighlightColorSchemePink, "-2"},
        {NSTextHighlightColorSchemeOrange, "-3"},
        {NSTextHighlightColorSchemeMint, "-4"},
        {NSTextHighlightColorSchemeBlue, "-5"},
    });
    for (const auto& example : kCases)
        EXPECT_THAT(
            highlighted(example.scheme),
            HasSubstr("\\AppleHighlight-1 \\AppleHilightClrSch" + std::string(example.number) + " x}"));
    EXPECT_EQ(writtenWord(NSTextHighlightStyleAttributeName, NSTextHighlightStyleDefault),
              "\\AppleHighlight-1 \\AppleHilightClrSch0 X\\AppleHighlight0 \\AppleHilightClrSch0 b}");
}

TEST(RTFWriter, WritesParagraphAttributes)
{
    struct Case {
        std::function<void(NSMutableParagraphStyle&)> set;
        std::string_view rtf;
    };

    using Style = NSMutableParagraphStyle;
    const std::vector<Case> cases{
        {[](Style& /*style*/) {}, "\\pard"},
        {[](Style& style) { style.setDefaultTabInterval(36); }, "\\pard\\pardeftab720"},
        {[](Style& style) { style.setHeadIndent(36); }, "\\pard\\li720\\fi-720"},
        {[](Style& style) {
             style.setHeadIndent(36);
             style.setFirstLineHeadIndent(36);
         },
         "\\pard\\li720"},
        {[](Style& style) { style.setFirstLineHeadIndent(-5); }, "\\pard\\fi-100"},
        {[](Style& style) { style.setTailIndent(-5); }, "\\pard\\ri100"},
        {[](Style& style) { style.setTailIndent(400); }, "\\pard\\ri640"},
        {[](Style& style) { style.setLineHeightMultiple(1.2); }, "\\pard\\sl288\\slmult1"},
        {[](Style& style) { style.setMinimumLineHeight(20); }, "\\pard\\sl400"},
        {[](Style& style) {
             style.setMinimumLineHeight(20);
             style.setMaximumLineHeight(20);
         },
         "\\pard\\sl-400"},
        {[](Style& style) { style.setMaximumLineHeight(25); }, "\\pard\\slmaximum500"},
        {[](Style& style) {
             style.setLineHeightMultiple(1.1);
             style.setMinimumLineHeight(15);
             style.setMaximumLineHeight(25);
             style.setLineSpacing(4);
         },
         "\\pard\\sl264\\slmult1\\slminimum300\\slmaximum500\\slleading80"},
        {[](Style& style) {
             style.setParagraphSpacingBefore(6);
             style.setParagraphSpacing(12);
         },
         "\\pard\\sb120\\sa240"},
        {[](Style& style) { style.setHyphenationFactor(0.5F); }, "\\pard\\parhyphenfactor50"},
        {[](Style& style) { style.setAlignment(NSTextAlignment::Right); }, "\\pard\\qr"},
        {[](Style& style) { style.setAlignment(NSTextAlignment::Center); }, "\\pard\\qc"},
        {[](Style& style) { style.setAlignment(NSTextAlignment::Justified); }, "\\pard\\qj"},
        {[](Style& style) { style.setAlignment(NSTextAlignment::Natural); }, "\\pard\\ql\\qnatural"},
        {[](Style& style) { style.setBaseWritingDirection(NSWritingDirection::RightToLeft); },
         "\\pard\\rtlpar"},
        {[](Style& style) { style.setBaseWritingDirection(NSWritingDirection::Natural); },
         "\\pard\\pardirnatural\\ql"},
        {[](Style& style) { style.setHeaderLevel(1); }, "\\pard\\outlinelevel0"},
    };
    for (const auto& example : cases) {
        auto style = bareStyle();
        example.set(style);
        EXPECT_EQ(writtenParagraph(style), example.rtf);
    }
}

TEST(RTFWriter, WritesTabsWithTheirKinds)
{
    auto style = bareStyle();
    const auto tab = [](NSTextAlignment alignment, double location, NSAny::Dictionary options = {}) {
        return std::make_shared<const NSTextTab>(alignment, location, std::move(options));
    };
    style.setTabStops(
        {tab(NSTextAlignment::Left, 25), tab(NSTextAlignment::Right, 150), tab(NSTextAlignment::Center, 250),
         tab(NSTextAlignment::Natural, 300),
         tab(NSTextAlignment::Right, 350, {{std::u16string(NSTabColumnTerminatorsAttributeName), u"."}})});
    EXPECT_EQ(writtenParagraph(style), "\\pard\\tx500\\tqr\\tx3000\\tqc\\tx5000\\tx6000\\tqdec\\tx7000");
}

TEST(RTFWriter, SaysTheParagraphStyleOnlyWhereItChanges)
{
    NSMutableAttributedString text;
    const auto style = NSAny(bareStyle().copy());
    text.appendAttributedString(NSAttributedString(u"a\nb\n", with(NSParagraphStyleAttributeName, style)));
    auto other = bareStyle();
    other.setAlignment(NSTextAlignment::Center);
    text.appendAttributedString(NSAttributedString(u"c", with(NSParagraphStyleAttributeName, other.copy())));
    EXPECT_THAT(written(text),
                testing::EndsWith("\\pard\\partightenfactor0\n\n\\f0\\fs24 \\cf0 a\\\nb\\\n"
                                  "\\pard\\qc\\partightenfactor0\n\\cf0 c}"));
}

TEST(RTFWriter, GoesBackToTheDefaultStyleForTextWithoutOne)
{
    NSMutableAttributedString text;
    text.appendAttributedString(
        NSAttributedString(u"a\n", with(NSParagraphStyleAttributeName, NSAny(bareStyle().copy()))));
    text.appendAttributedString(NSAttributedString(u"b"));
    EXPECT_THAT(written(text), HasSubstr("a\\\n\\pard\\tx560"));
}

TEST(RTFWriter, WritesLinksAsFields)
{
    const auto link = [](const NSAny& value) { return writtenWord(NSLinkAttributeName, value); };
    EXPECT_EQ(link(*NSURL::URLWithString("https://a.example/?b")),
              "{\\field{\\*\\fldinst{HYPERLINK \"https://a.example/?b\"}}{\\fldrslt X}}b}");
    EXPECT_EQ(link(u"striprtf.dev"), "{\\field{\\*\\fldinst{HYPERLINK \"striprtf.dev\"}}{\\fldrslt X}}b}");
    EXPECT_EQ(link(u"a b\"c\\{d}"),
              "{\\field{\\*\\fldinst{HYPERLINK \"a%20b%22c\\\\\\{d\\}\"}}{\\fldrslt X}}b}");
    EXPECT_EQ(link(u""), "Xb}");
}

TEST(RTFWriter, KeepsFormatsOfALinkWithinIt)
{
    NSMutableAttributedString text;
    auto attributes = with(NSLinkAttributeName, u"x:y");
    text.appendAttributedString(NSAttributedString(u"a", attributes));
    attributes.emplace(NSUnderlineStyleAttributeName, 1);
    text.appendAttributedString(NSAttributedString(u"b", attributes));
    text.appendAttributedString(NSAttributedString(u"c", with(NSUnderlineStyleAttributeName, 1)));
    EXPECT_THAT(written(text), HasSubstr("{\\fldrslt a\\ul \\ulc0 b}}\\ul \\ulc0 c}"));
}

TEST(RTFWriter, EndsLinksBeforeTheParagraphDoes)
{
    EXPECT_THAT(written(NSAttributedString(u"a\nb", with(NSLinkAttributeName, u"x:y"))),
                HasSubstr("{\\fldrslt a}}\\\n{\\field{\\*\\fldinst{HYPERLINK \"x:y\"}}{\\fldrslt b}}}"));
}

TEST(RTFWriter, LeavesAttachmentsOutOfPlainRichText)
{
    const auto attachment = std::make_shared<NSTextAttachment>();
    NSMutableAttributedString text(NSAttributedString(u"a"));
    text.appendAttributedString(NSAttributedString::attributedStringWithAttachment(attachment));
    text.appendAttributedString(NSAttributedString(u"b"));
    EXPECT_THAT(written(text), testing::EndsWith("\\cf0 ab}"));
}

TEST(RTFWriter, WritesDocumentAttributes)
{
    const NSAny::Dictionary attributes{
        {std::u16string(NSTitleDocumentAttribute), u"T\u00E4tle"},
        {std::u16string(NSAuthorDocumentAttribute), u"N"},
        {std::u16string(NSKeywordsDocumentAttribute), NSAny::Array{u"one", u"two"}},
        {std::u16string(NSCompanyDocumentAttribute), u"C"},
        {std::u16string(NSPaperSizeDocumentAttribute), std::make_shared<const NSValue>(NSSize{595, 842})},
        {std::u16string(NSLeftMarginDocumentAttribute), 72.0},
        {std::u16string(NSRightMarginDocumentAttribute), 72.0},
        {std::u16string(NSViewSizeDocumentAttribute), std::make_shared<const NSValue>(NSSize{576, 420})},
        {std::u16string(NSViewModeDocumentAttribute), 0},
        {std::u16string(NSReadOnlyDocumentAttribute), 1},
        {std::u16string(NSHyphenationFactorDocumentAttribute), 0.9},
        {std::u16string(NSDefaultTabIntervalDocumentAttribute), 36.0},
    };
    EXPECT_THAT(
        written(NSAttributedString(u"x"), attributes),
        HasSubstr("{\\info\n{\\title T\\'e4tle}\n{\\author N}\n{\\keywords one, two}\n{\\*\\company C}}"
                  "\\paperw11900\\paperh16840\\margl1440\\margr1440\\vieww11520\\viewh8400\\viewkind0"
                  "\\readonlydoc1\\hyphauto1\\hyphfactor90\n\\deftab720\n"));
}

TEST(RTFWriter, CountsPositiveTailIndentsWithinThePage)
{
    auto style = bareStyle();
    style.setTailIndent(400);
    const NSAny::Dictionary attributes{
        {std::u16string(NSPaperSizeDocumentAttribute), std::make_shared<const NSValue>(NSSize{600, 800})},
        {std::u16string(NSLeftMarginDocumentAttribute), 50.0},
        {std::u16string(NSRightMarginDocumentAttribute), 50.0}};
    const auto document
        = written(NSAttributedString(u"x", with(NSParagraphStyleAttributeName, style.copy())), attributes);
    EXPECT_THAT(document, HasSubstr("\\ri2000"));
    EXPECT_THAT(document, Not(HasSubstr("\\deftab")));
}
