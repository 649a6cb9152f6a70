#include "platform/media/XMLTextStream.h"

#include "platform/foundation/Unicode.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

/// Writes down what it is told: "<name a>text</name>".
class Recorder final : public XMLHandler {
public:
    void startElement(std::string_view localName, const XMLAttributes& attributes) override
    {
        record += "<" + std::string(localName);
        if (const auto value = attributes.value("a"); !value.empty())
            record += " " + std::string(value);
        if (const auto value = attributes.prefixedValue("id"); !value.empty())
            record += " :" + std::string(value);
        record += ">";
        if (localName == "throw")
            throw std::runtime_error("thrown by the handler");
    }

    void endElement(std::string_view localName) override { record += "</" + std::string(localName) + ">"; }

    void text(std::string_view text) override { record += text; }

    std::string record;
};

PartStatus parse(std::string_view xml, std::string& record, std::size_t chunk = 1'000'000,
                 const ContentLimits& limits = {})
{
    Recorder recorder;
    ContentSink sink(limits);
    XMLTextStream stream(recorder, sink);
    for (; !xml.empty() && stream.append(xml.substr(0, chunk));
         xml.remove_prefix(std::min(chunk, xml.size())))
        ;
    const auto status = stream.finish();
    record = recorder.record;
    return status;
}

PartStatus parse(std::string_view xml)
{
    std::string record;
    return parse(xml, record);
}

std::string UTF16Bytes(std::string_view text)
{
    std::string bytes("\xFF\xFE");
    for (const auto unit : UTF16FromUTF8(text))
        bytes += {static_cast<char>(unit & 0xFFU), static_cast<char>(unit >> 8U)};
    return bytes;
}

} // namespace

TEST(XMLTextStream, GivesTheSameHoweverTheBytesArrive)
{
    const std::string xml
        = "<?xml version='1.0'?><w:p xmlns:w='u' w:a='x'>Grüße &amp; <b a=\"R&amp;D\"/>&#x4e2d;</w:p>";
    for (const std::size_t chunk : {1U, 2U, 3U, 7U, 1000U}) {
        std::string record;
        EXPECT_EQ(parse(xml, record, chunk), PartStatus::Read) << chunk;
        EXPECT_EQ(record, "<p x>Grüße & <b R&D></b>中</p>") << chunk;
    }
}

TEST(XMLTextStream, TellsPrefixedAttributesFromOthers)
{
    std::string record;
    EXPECT_EQ(parse("<s xmlns:r='u' id='256' r:id='rId2'/>", record), PartStatus::Read);
    EXPECT_EQ(record, "<s :rId2></s>");
}

TEST(XMLTextStream, ReadsUTF16)
{
    std::string record;
    EXPECT_EQ(parse(UTF16Bytes("<?xml version='1.0' encoding='UTF-16'?><t>Grüße 中</t>"), record),
              PartStatus::Read);
    EXPECT_EQ(record, "<t>Grüße 中</t>");
}

TEST(XMLTextStream, TakesPrefixesThatAreNotDeclared)
{
    std::string record;
    EXPECT_EQ(parse("<w:t>text</w:t>", record), PartStatus::Read);
    EXPECT_NE(record.find(">text<"), std::string::npos);
}

TEST(XMLTextStream, KeepsWhatStandsBeforeTheDamage)
{
    std::string record;
    EXPECT_EQ(parse("<t>before <b>after</t>", record), PartStatus::Damaged);
    EXPECT_EQ(record.substr(0, 10), "<t>before ");
    EXPECT_EQ(parse("<t>not closed"), PartStatus::Damaged);
    EXPECT_EQ(parse(""), PartStatus::Damaged);
    EXPECT_EQ(parse("no XML"), PartStatus::Damaged);
}

TEST(XMLTextStream, KnowsNoDeclaredEntities)
{
    EXPECT_EQ(parse("<!DOCTYPE t [<!ENTITY e 'text'>]><t>&e;</t>"), PartStatus::Damaged);
    EXPECT_EQ(parse("<!DOCTYPE t [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><t>&e;</t>"), PartStatus::Damaged);
    EXPECT_EQ(parse("<!DOCTYPE t [<!ENTITY % p SYSTEM 'file:///etc/passwd'> %p;]><t>text</t>"),
              PartStatus::Damaged);
    EXPECT_EQ(parse("<!DOCTYPE t PUBLIC '-//OASIS//DTD' 'file:///etc/passwd'><t>text</t>"), PartStatus::Read);
}

TEST(XMLTextStream, DoesNotExpandAnEntityBomb)
{
    std::string xml = "<!DOCTYPE t [<!ENTITY e0 'ha'>";
    for (int level = 1; level < 30; ++level) {
        const auto name = "&e" + std::to_string(level - 1) + ";";
        xml.append("<!ENTITY e")
            .append(std::to_string(level))
            .append(" '")
            .append(name)
            .append(name)
            .append("'>");
    }
    std::string record;
    EXPECT_EQ(parse(xml + "]><t a='&e29;'>&e29;</t>", record), PartStatus::Damaged);
    EXPECT_LT(record.size(), 100U);
}

TEST(XMLTextStream, GivesUpOnADocumentTypeWithoutEnd)
{
    std::string xml = "<!DOCTYPE t [";
    while (xml.size() < 2'000'000)
        xml.append("<!ENTITY e").append(std::to_string(xml.size())).append(" 'text'>");
    std::string record;
    EXPECT_EQ(parse(xml + "]><t>text</t>", record), PartStatus::Damaged);
    EXPECT_EQ(record, "");
}

TEST(XMLTextStream, CutsAtTheLimitOfNesting)
{
    ContentLimits limits;
    limits.nesting = 5;
    std::string record;
    EXPECT_EQ(parse("<a><a><a><a><a>in</a></a></a></a></a>", record, 10, limits), PartStatus::Read);
    EXPECT_EQ(parse("<a><a><a><a><a>in<a>out</a></a></a></a></a></a>", record, 10, limits), PartStatus::Cut);
    EXPECT_EQ(record, "<a><a><a><a><a>in");
}

TEST(XMLTextStream, SurvivesAnyDepth)
{
    std::string xml;
    for (int depth = 0; depth < 100'000; ++depth)
        xml += "<a>";
    EXPECT_EQ(parse(xml), PartStatus::Cut);
}

TEST(XMLTextStream, LetsOutWhatTheHandlerThrows)
{
    EXPECT_THROW((void)parse("<t><throw/></t>"), std::runtime_error);
}
