#include "platform/media/XMLReader.h"

#include "tests/support/ReadWith.h"

#include <gtest/gtest.h>

TEST(XMLReader, GivesCharacterDataWithoutTags)
{
    const auto content
        = readWith(readXML,
                   "<?xml version='1.0'?><a x='attribute'>one<b>two</b>&lt;three&gt;<!-- no -->"
                   "<![CDATA[<four>]]></a>");
    EXPECT_EQ(content.status, ContentStatus::Read);
    EXPECT_EQ(content.text, "one two <three><four> ");
}

TEST(XMLReader, ReadsEveryKindOfXMLByItsType)
{
    for (const auto* type : {"public.xml", "public.svg-image", "public.rss", "com.apple.xml-property-list"}) {
        const auto content = readContent(sourceOfBytes("<x>text</x>", type));
        EXPECT_EQ(content.text, "text ") << type;
    }
}

TEST(XMLReader, KeepsWhatStandsBeforeDamage)
{
    const auto content = readWith(readXML, "<a>kept <b>too</a> lost");
    EXPECT_EQ(content.status, ContentStatus::Damaged);
    EXPECT_TRUE(content.text.starts_with("kept too"));
}

TEST(XMLReader, OpensNothingAndExpandsNothing)
{
    const auto external
        = readWith(readXML, "<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><a>x &e; y</a>");
    EXPECT_EQ(external.text.find("root"), std::string::npos);

    std::string bomb = "<!DOCTYPE a [<!ENTITY e0 'boom'>";
    for (int level = 1; level < 20; ++level) {
        const auto inner = "&e" + std::to_string(level - 1) + ";";
        bomb += "<!ENTITY e" + std::to_string(level) + " '";
        for (int copy = 0; copy < 10; ++copy)
            bomb += inner;
        bomb += "'>";
    }
    EXPECT_LT(readWith(readXML, bomb + "]><a>&e19;</a>").text.size(), 1000U);
}

TEST(XMLReader, BoundsDepth)
{
    std::string deep;
    for (int level = 0; level < 100'000; ++level)
        deep += "<a>";
    EXPECT_EQ(readWith(readXML, deep).cutNotes.size(), 1U);
}
