// How the paragraphs of a document are set, and what stands in their lines.

#include "tests/word/ReadWord.h"

namespace {

NSParagraphStyle::Ref styleOf(std::string_view properties)
{
    return styleAt(textOfWordBody(wordParagraph("word", properties)), u"word");
}

} // namespace

TEST(WordParagraphs, EndWithALineEndEach)
{
    EXPECT_EQ(textOfWordBody(wordParagraph("one") + "<w:p/>" + wordParagraph("two")).string(),
              u"one\n\ntwo\n");
}

TEST(WordParagraphs, HoldBreaksTabsAndHyphens)
{
    EXPECT_EQ(textOfWordBody("<w:p><w:r><w:t>a</w:t><w:br/><w:t>b</w:t><w:br w:type='page'/><w:t>c</w:t>"
                             "<w:tab/><w:t>d</w:t><w:noBreakHyphen/><w:t>e</w:t><w:softHyphen/><w:t>f</w:t>"
                             "<w:cr/><w:ptab/></w:r></w:p>")
                  .string(),
              u"a\u2028b\fc\td\u2011e\u00ADf\u2028\t\n");
}

TEST(WordParagraphs, KeepLineEndsAndAttachmentCharactersOutOfTheirText)
{
    EXPECT_EQ(textOfWordBody("<w:p><w:r><w:t>a\nb&#9;c&#xFFFC;d&#x2029;e</w:t></w:r></w:p>").string(),
              u"a b c\uFFFDd e\n");
}

TEST(WordParagraphs, AreAligned)
{
    struct Row {
        const char* value;
        NSTextAlignment alignment;
        NSTextAlignment rightToLeft;
    };

    using enum NSTextAlignment;
    constexpr std::array<Row, 8> kRows{{{"left", Left, Right},
                                        {"start", Left, Right},
                                        {"center", Center, Center},
                                        {"right", Right, Left},
                                        {"end", Right, Left},
                                        {"both", Justified, Justified},
                                        {"distribute", Justified, Justified},
                                        {"unknown", Natural, Natural}}};
    for (const auto& row : kRows) {
        const auto jc = "<w:jc w:val='" + std::string(row.value) + "'/>";
        EXPECT_EQ(styleOf(jc)->alignment(), row.alignment) << row.value;
        EXPECT_EQ(styleOf("<w:bidi/>" + jc)->alignment(), row.rightToLeft) << row.value;
    }
    EXPECT_EQ(styleOf("<w:bidi/>")->baseWritingDirection(), NSWritingDirection::RightToLeft);
    EXPECT_EQ(styleOf("")->baseWritingDirection(), NSWritingDirection::Natural);
}

TEST(WordParagraphs, AreIndented)
{
    const auto first = styleOf("<w:ind w:left='720' w:right='400' w:firstLine='240'/>");
    EXPECT_EQ(first->headIndent(), 36);
    EXPECT_EQ(first->firstLineHeadIndent(), 48);
    EXPECT_EQ(first->tailIndent(), -20);
    const auto hanging = styleOf("<w:ind w:start='1in' w:hanging='360'/>");
    EXPECT_EQ(hanging->headIndent(), 72);
    EXPECT_EQ(hanging->firstLineHeadIndent(), 54);
}

TEST(WordParagraphs, AreSpaced)
{
    const auto spaced = styleOf("<w:spacing w:before='120' w:after='200' w:line='360' w:lineRule='auto'/>");
    EXPECT_EQ(spaced->paragraphSpacingBefore(), 6);
    EXPECT_EQ(spaced->paragraphSpacing(), 10);
    EXPECT_EQ(spaced->lineHeightMultiple(), 1.5);
    const auto exact = styleOf("<w:spacing w:line='300' w:lineRule='exact'/>");
    EXPECT_EQ(exact->minimumLineHeight(), 15);
    EXPECT_EQ(exact->maximumLineHeight(), 15);
    const auto least = styleOf("<w:spacing w:line='300' w:lineRule='atLeast'/>");
    EXPECT_EQ(least->minimumLineHeight(), 15);
    EXPECT_EQ(least->maximumLineHeight(), 0);
    EXPECT_EQ(styleOf("<w:spacing w:line='240'/>")->lineHeightMultiple(), 0);
    EXPECT_EQ(styleOf("<w:spacing w:before='40' w:beforeAutospacing='1'/>")->paragraphSpacingBefore(), 14);
}

TEST(WordParagraphs, HaveTheirTabStops)
{
    const auto style = styleOf("<w:tabs><w:tab w:val='right' w:pos='2000'/><w:tab w:val='left' w:pos='1000'/>"
                               "<w:tab w:val='clear' w:pos='500'/></w:tabs>");
    ASSERT_EQ(style->tabStops().size(), 2U);
    EXPECT_EQ(style->tabStops()[0]->location(), 50);
    EXPECT_EQ(style->tabStops()[0]->alignment(), NSTextAlignment::Left);
    EXPECT_EQ(style->tabStops()[1]->location(), 100);
    EXPECT_EQ(style->tabStops()[1]->alignment(), NSTextAlignment::Right);
    EXPECT_EQ(style->defaultTabInterval(), 36);
}

TEST(WordParagraphs, AreHeadingsByOutlineLevelOrByTheNameOfTheirStyle)
{
    WordPackageBytes document;
    document.parts.push_back(
        {"s", "styles", "styles.xml",
         wordRoot("styles",
                  "<w:style w:type='paragraph' w:styleId='U1'><w:name w:val='Heading 2'/></w:style>"
                  "<w:style w:type='paragraph' w:styleId='U2'><w:name w:val='Heading'/><w:pPr>"
                  "<w:outlineLvl w:val='2'/></w:pPr></w:style><w:style w:type='paragraph' w:styleId='U3'>"
                  "<w:name w:val='Mine'/><w:basedOn w:val='U1'/></w:style>")});
    document.body = wordParagraph("two", "<w:pStyle w:val='U1'/>")
        + wordParagraph("three", "<w:pStyle w:val='U2'/>") + wordParagraph("based", "<w:pStyle w:val='U3'/>")
        + wordParagraph("text", "<w:pStyle w:val='U1'/><w:outlineLvl w:val='9'/>")
        + wordParagraph("one", "<w:outlineLvl w:val='0'/>");
    const auto text = textOfWord(document);
    EXPECT_EQ(styleAt(text, u"two")->headerLevel(), 2);
    EXPECT_EQ(styleAt(text, u"three")->headerLevel(), 3);
    EXPECT_EQ(styleAt(text, u"based")->headerLevel(), 2);
    EXPECT_EQ(styleAt(text, u"text")->headerLevel(), 0);
    EXPECT_EQ(styleAt(text, u"one")->headerLevel(), 1);
}

TEST(WordParagraphs, KeepInsertionsAndDropDeletions)
{
    EXPECT_EQ(textOfWordBody("<w:p>" + wordRun("a") + "<w:ins>" + wordRun("b")
                             + "</w:ins><w:del><w:r>"
                               "<w:delText>c</w:delText></w:r></w:del><w:moveFrom>"
                             + wordRun("d") + "</w:moveFrom><w:moveTo>" + wordRun("e") + "</w:moveTo></w:p>")
                  .string(),
              u"abe\n");
}

TEST(WordParagraphs, ThatAChangeTookWithAllTheyHeldAreGone)
{
    const std::string deletedMark = "<w:pPr><w:rPr><w:del/></w:rPr></w:pPr>";
    EXPECT_EQ(textOfWordBody("<w:p>" + deletedMark + "<w:del>" + wordRun("gone") + "</w:del></w:p><w:p>"
                             + deletedMark + wordRun("stays") + "</w:p>" + wordParagraph("next"))
                  .string(),
              u"stays\nnext\n");
}

TEST(WordParagraphs, OfShapesFollowTheParagraphAndAreReadOnce)
{
    const auto box = "<w:txbxContent>" + wordParagraph("box") + "</w:txbxContent>";
    const auto text = textOfWordBody("<w:p>" + wordRun("be")
                                     + "<w:r><mc:AlternateContent><mc:Choice><w:drawing><wps:txbx>" + box
                                     + "</wps:txbx></w:drawing></mc:Choice><mc:Fallback><w:pict><v:textbox>"
                                     + box + "</v:textbox></w:pict></mc:Fallback></mc:AlternateContent></w:r>"
                                     + wordRun("fore") + "</w:p>" + wordParagraph("after"));
    EXPECT_EQ(text.string(), u"before\nbox\nafter\n");
}

TEST(WordParagraphs, TakeTheFallbackWhereTheChoiceHasNoText)
{
    EXPECT_EQ(textOfWordBody("<w:p><w:r><mc:AlternateContent><mc:Choice><w:drawing/></mc:Choice>"
                             "<mc:Fallback><w:pict><v:textpath string='Word art'/></w:pict></mc:Fallback>"
                             "</mc:AlternateContent></w:r></w:p>")
                  .string(),
              u"Word art\n");
}

TEST(WordParagraphs, HoldContentControlsAndFormulas)
{
    const auto text = textOfWordBody(
        "<w:sdt><w:sdtPr><w:alias w:val='x'/><w:text/><w:rPr><w:b/></w:rPr></w:sdtPr><w:sdtContent>"
        + wordParagraph("control")
        + "</w:sdtContent></w:sdt><w:p><m:oMath><m:sSup><m:e><m:r><m:t>x</m:t></m:r></m:e><m:sup><m:r><m:t>2"
          "</m:t></m:r></m:sup></m:sSup><m:f><m:num><m:r><m:t>a</m:t></m:r></m:num><m:den><m:r><m:t>b</m:t>"
          "</m:r></m:den></m:f></m:oMath></w:p>");
    EXPECT_EQ(text.string(), u"control\nx2a/b\n");
    EXPECT_EQ(attributeAt(text, u"2", NSSuperscriptAttributeName), NSAny(1));
    EXPECT_FALSE(attributeAt(text, u"a/b", NSSuperscriptAttributeName));
    EXPECT_EQ(fontAt(text, u"control")->fontName(), u"TimesNewRomanPSMT");
}

TEST(WordParagraphs, LeavePhoneticGuidesOut)
{
    EXPECT_EQ(
        textOfWordBody("<w:p><w:r><w:ruby><w:rt><w:r><w:t>kan</w:t></w:r></w:rt><w:rubyBase><w:r><w:t>漢"
                       "</w:t></w:r></w:rubyBase></w:ruby></w:r></w:p>")
            .string(),
        u"漢\n");
}

TEST(WordParagraphs, StopTabsWhereTheSettingsSay)
{
    const auto intervalWith = [](std::string_view settings) {
        WordPackageBytes document;
        document.body = wordParagraph("text");
        document.parts.push_back({"s", "settings", "settings.xml", wordRoot("settings", settings)});
        return styleAt(textOfWord(document), u"text")->defaultTabInterval();
    };
    EXPECT_EQ(intervalWith("<w:defaultTabStop w:val='708'/>"), 35.4);
    EXPECT_EQ(intervalWith("<w:defaultTabStop w:val='0'/>"), 36);
    EXPECT_EQ(intervalWith("<w:defaultTabStop w:val='x'/>"), 36);
    EXPECT_EQ(intervalWith(""), 36);
}
