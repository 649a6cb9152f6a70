#include "platform/foundation/NSPropertyList.h"

#include "platform/foundation/NSURL.h"
#include "platform/foundation/PropertyListLimits.h"
#include "tests/support/PropertyListBytes.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

namespace {

constexpr NSPropertyListFormat kFormats[] = {NSPropertyListFormat::XML, NSPropertyListFormat::Binary};

std::string written(const NSAny& value, NSPropertyListFormat format)
{
    NSError error;
    const auto data = NSPropertyListSerialization::dataWithPropertyList(value, format, &error);
    EXPECT_TRUE(data) << error.localizedDescription();
    return data.value_or(NSData{}).bytes;
}

NSAny read(std::string_view data)
{
    NSError error;
    auto value = NSPropertyListSerialization::propertyListWithData(data, &error);
    EXPECT_TRUE(value) << error.localizedDescription();
    return value;
}

NSAny readXML(std::string_view body)
{
    return read("<plist version=\"1.0\">" + std::string(body) + "</plist>");
}

void expectCorrupt(std::string_view data)
{
    NSError error;
    EXPECT_TRUE(NSPropertyListSerialization::propertyListWithData(data, &error).isNil()) << data;
    EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    EXPECT_EQ(error.code(), 3840);
    EXPECT_TRUE(NSPropertyListSerialization::propertyListWithData(data).isNil());
}

void expectUnwritable(const NSAny& value, NSPropertyListFormat format)
{
    NSError error;
    EXPECT_FALSE(NSPropertyListSerialization::dataWithPropertyList(value, format, &error));
    EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    EXPECT_EQ(error.code(), 3851);
    EXPECT_FALSE(NSPropertyListSerialization::dataWithPropertyList(value, format));
}

NSAny nested(unsigned depth)
{
    NSAny value = NSAny::Array();
    for (unsigned level = 1; level < depth; ++level)
        value = NSAny::Array{value};
    return value;
}

std::string repeated(std::string_view text, unsigned count)
{
    std::string all;
    for (unsigned index = 0; index < count; ++index)
        all += text;
    return all;
}

} // namespace

TEST(NSPropertyList, KeepsEveryKindInBothForms)
{
    const NSAny values[] = {
        true,
        false,
        0,
        -1,
        127,
        128,
        65535,
        65536,
        std::int64_t{1} << 32,
        std::numeric_limits<std::int64_t>::max(),
        std::numeric_limits<std::int64_t>::min(),
        0.1,
        1e300,
        -5e-324,
        std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity(),
        u"",
        u"<&>\"'\r\n\t ]]>",
        u"h\u00E4user \u4E2D \U0001F44A",
        NSData{},
        NSData{"a"},
        NSData{std::string("\0\xFF\x10", 3)},
        NSData{std::string(1000, 'x')},
        NSDate{0},
        NSDate{-63114076800.0},
        NSDate{4e9},
        NSAny::Array{},
        NSAny::Dictionary{},
        NSAny::Dictionary{{u"", NSAny::Array{1, NSAny::Dictionary{{u"k", u"v"}}}}, {u"\u00E4", 2.5}},
        archiveUID(0),
        archiveUID(70000),
    };
    for (const auto format : kFormats) {
        for (const auto& value : values) {
            const auto back = read(written(value, format));
            EXPECT_EQ(back, value);
            EXPECT_EQ(back.isBoolean(), value.isBoolean());
            EXPECT_EQ(back.isReal(), value.isReal());
        }
        EXPECT_TRUE(std::isnan(read(written(std::nan(""), format)).doubleValue()));
        EXPECT_TRUE(std::signbit(read(written(-0.0, format)).doubleValue()));
    }
}

TEST(NSPropertyList, WritesTheBytesThatThePlatformWrites)
{
    // By hand: the header, true, the offset table (8), and the trailer.
    const std::string expected(
        "bplist00\x09\x08\0\0\0\0\0\0\x01\x01\0\0\0\0\0\0\0\x01\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x09", 42);
    EXPECT_EQ(written(true, NSPropertyListFormat::Binary), expected);
}

TEST(NSPropertyList, WritesXMLAsThePlatformDoes)
{
    EXPECT_EQ(written(NSAny::Dictionary{{u"a<b", NSAny::Array{1, 0.5, true, NSData{"Man"}, NSDate{0.9}}}},
                      NSPropertyListFormat::XML),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
              "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
              "<plist version=\"1.0\">\n"
              "<dict>\n"
              "\t<key>a&lt;b</key>\n"
              "\t<array>\n"
              "\t\t<integer>1</integer>\n"
              "\t\t<real>0.5</real>\n"
              "\t\t<true/>\n"
              "\t\t<data>TWFu</data>\n"
              "\t\t<date>2001-01-01T00:00:00Z</date>\n"
              "\t</array>\n"
              "</dict>\n"
              "</plist>\n");
}

TEST(NSPropertyList, ReadsTheScalarsOfXML)
{
    EXPECT_EQ(readXML("<integer> 0x1F </integer>"), NSAny(31));
    EXPECT_EQ(readXML("<integer>+7</integer>"), NSAny(7));
    EXPECT_EQ(readXML("<integer>-9223372036854775808</integer>"),
              NSAny(std::numeric_limits<std::int64_t>::min()));
    EXPECT_EQ(readXML("<real>1.5e3</real>"), NSAny(1500.0));
    EXPECT_EQ(readXML("<real>1e999</real>"), NSAny(std::numeric_limits<double>::infinity()));
    EXPECT_EQ(readXML("<real>1e-999</real>"), NSAny(0.0));
    EXPECT_EQ(readXML("<date>2080-01-01T00:00:01Z</date>"), NSAny(NSDate{2492985601.0}));
    EXPECT_EQ(readXML("<data>\n\tTW E=\n</data>"), NSAny(NSData{"Ma"}));
    EXPECT_EQ(readXML("<string>a<![CDATA[<b>]]>&amp;&#x1F44A;</string>"), NSAny(u"a<b>&\U0001F44A"));
    EXPECT_EQ(readXML("<array><!-- nothing --><true></true><false/></array>"),
              NSAny(NSAny::Array{true, false}));
}

TEST(NSPropertyList, ReadsXMLInUTF16)
{
    std::string bytes("\xFF\xFE");
    for (const char character : std::string_view("<plist><string>a</string></plist>")) {
        bytes += character;
        bytes += '\0';
    }
    EXPECT_EQ(read(bytes), NSAny(u"a"));
}

TEST(NSPropertyList, ReadsXMLInTheEncodingThatItDeclares)
{
    EXPECT_EQ(read("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><plist><string>\xE4</string></plist>"),
              NSAny(u"\u00E4"));
}

TEST(NSPropertyList, LeavesStandardErrorAlone)
{
    testing::internal::CaptureStderr();
    expectCorrupt("<?xml version=\"1.0\" encoding=\"UTF-16\"?><plist><string>\xD8</string></plist>");
    expectCorrupt("<?xml version=\"1.0\" encoding=\"EUC-JP\"?><plist><string>\xFF\xFF</plist>");
    expectCorrupt("<plist><unclosed></plist>");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(NSPropertyList, TakesNumbersBeyondTheIntegersForReals)
{
    EXPECT_EQ(readXML("<integer>18446744073709551615</integer>"), NSAny(18446744073709551616.0));
    const PropertyListBytes huge{{"\x14" + std::string(8, '\0') + std::string(8, '\xFF')}};
    EXPECT_EQ(read(huge.bytes()), NSAny(18446744073709551616.0));
    const PropertyListBytes negative{{"\x14" + std::string(16, '\xFF')}};
    EXPECT_EQ(read(negative.bytes()), NSAny(-1));
}

TEST(NSPropertyList, KeepsUnpairedSurrogatesAndNULsInBinary)
{
    const NSAny value = std::u16string(u"a\0\xD83D b\xDC4A", 6);
    EXPECT_EQ(read(written(value, NSPropertyListFormat::Binary)), value);
}

TEST(NSPropertyList, RefusesTextsThatXMLCannotHold)
{
    const std::u16string texts[] = {std::u16string(u"\0", 1),
                                    u"\x01",
                                    u"\x1F",
                                    std::u16string(1, u'\xD83D'),
                                    std::u16string(1, u'\xDC4A'),
                                    std::u16string(1, u'\xFFFF')};
    for (const auto& text : texts) {
        expectUnwritable(text, NSPropertyListFormat::XML);
        expectUnwritable(NSAny::Dictionary{{text, 1}}, NSPropertyListFormat::XML);
    }
}

TEST(NSPropertyList, RefusesWhatIsNoPropertyList)
{
    for (const auto format : kFormats) {
        expectUnwritable(nullptr, format);
        expectUnwritable(NSAny::Array{nullptr}, format);
        expectUnwritable(NSAny::Dictionary{{u"a", *NSURL::URLWithString("https://example.com")}}, format);
        expectUnwritable(nested(kMaximumPropertyListDepth + 1), format);
    }
    expectUnwritable(NSDate{1e300}, NSPropertyListFormat::XML);
}

TEST(NSPropertyList, WritesAsDeepAsItReads)
{
    const auto deepest = nested(kMaximumPropertyListDepth);
    for (const auto format : kFormats)
        EXPECT_EQ(read(written(deepest, format)), deepest);
    expectCorrupt("<plist>" + repeated("<array>", kMaximumPropertyListDepth + 1)
                  + repeated("</array>", kMaximumPropertyListDepth + 1) + "</plist>");
    expectCorrupt("<plist>" + repeated("<array>", 1'000'000));
}

TEST(NSPropertyList, StoresASharedCollectionOnce)
{
    NSAny value = NSAny::Array{u"leaf"};
    for (int level = 0; level < 15; ++level)
        value = NSAny::Array{value, value};
    const auto bytes = written(value, NSPropertyListFormat::Binary);
    EXPECT_LT(bytes.size(), 200U);
    EXPECT_EQ(read(bytes), value);
}

TEST(NSPropertyList, RefusesListsThatGrowWithoutBound)
{
    NSAny value = NSAny::Array{u"leaf"};
    for (int level = 0; level < 60; ++level)
        value = NSAny::Array{value, value};
    expectCorrupt(written(value, NSPropertyListFormat::Binary));
}

TEST(NSPropertyList, RefusesMalformedXML)
{
    const std::string_view bodies[] = {
        "",
        "<string>a",
        "<string>a</string><string>b</string>",
        "<dict><key>a</key></dict>",
        "<dict><string>a</string></dict>",
        "<dict><key>a</key><key>b</key></dict>",
        "<array><key>a</key></array>",
        "<array>text</array>",
        "<array><plist/></array>",
        "<unknown/>",
        "<string>a<true/></string>",
        "<integer></integer>",
        "<integer>1.5</integer>",
        "<integer>18446744073709551616</integer>",
        "<integer>--1</integer>",
        "<integer>-9223372036854775809</integer>",
        "<real></real>",
        "<real>1,5</real>",
        "<date>2001-13-01T00:00:00Z</date>",
        "<date>2001-01-01</date>",
        "<data>A</data>",
        "<data>*</data>",
        "<data>QQ==QQ==</data>",
        "<string>&unknown;</string>",
        "<string>&#0;</string>",
        "<string>\xFF</string>",
    };
    for (const auto body : bodies)
        expectCorrupt("<plist>" + std::string(body) + "</plist>");
    expectCorrupt("");
    expectCorrupt("plain text");
    expectCorrupt("<dict/>");
}

TEST(NSPropertyList, RefusesEntitiesThatTheListDeclares)
{
    expectCorrupt("<!DOCTYPE plist [<!ENTITY a \"text\">]><plist><string>&a;</string></plist>");
    expectCorrupt("<!DOCTYPE plist SYSTEM \"x.dtd\"><plist><string>&a;</string></plist>");
    expectCorrupt(
        "<!DOCTYPE plist [<!ENTITY a SYSTEM \"file:///etc/passwd\">]><plist><string>&a;</string></plist>");
}

TEST(NSPropertyList, RefusesMalformedBinaryLists)
{
    const std::string one("\x10\x01", 2);
    const std::string_view objects[] = {
        std::string_view("\x15", 1), // An integer of 32 bytes.
        std::string_view("\x10", 1), // An integer without its byte.
        std::string_view("\x21\0\0", 3), // A real of two bytes.
        std::string_view("\x32\0\0\0\0", 5), // A date of four bytes.
        std::string_view("\x45"
                         "abc",
                         4), // Data that is cut.
        std::string_view("\x55"
                         "abc",
                         4), // A text that is cut.
        std::string_view("\x62"
                         "abc",
                         4), // A text of wide characters that is cut.
        std::string_view("\x5F\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 10), // A count beyond everything.
        std::string_view("\x5F\x14", 2), // A count of 16 bytes.
        std::string_view("\x5F", 1), // A count that is missing.
        std::string_view("\x70", 1), // No such kinds.
        std::string_view("\xE0", 1),
        std::string_view("\x0F", 1),
        std::string_view("\x00", 1), // A null.
        std::string_view("\x8F\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\1", 17), // A UID of 16 bytes.
    };
    for (const auto object : objects)
        expectCorrupt(PropertyListBytes{{std::string(object)}}.bytes());
    expectCorrupt(PropertyListBytes{{collectionBytes(0xA0, {1})}}.bytes());
    expectCorrupt(PropertyListBytes{{collectionBytes(0xA0, {0})}}.bytes());
    expectCorrupt(PropertyListBytes{{collectionBytes(0xA0, {1}), collectionBytes(0xA0, {0})}}.bytes());
    expectCorrupt(PropertyListBytes{{collectionBytes(0xD0, {1, 1}), one}}.bytes());
    expectCorrupt(PropertyListBytes{{one}, 1}.bytes());
}

TEST(NSPropertyList, RefusesTrailersThatLie)
{
    PropertyListBytes list{{std::string("\x10\x01", 2)}};
    EXPECT_EQ(read(list.bytes()), NSAny(1));
    const auto whole = list.bytes();
    for (std::size_t length = 0; length < whole.size(); ++length)
        expectCorrupt(whole.substr(0, length));
    for (const auto size : {std::uint8_t{0}, std::uint8_t{9}, std::uint8_t{255}}) {
        auto lying = list;
        lying.offsetSize = size;
        expectCorrupt(lying.bytes());
        lying = list;
        lying.referenceSize = size;
        expectCorrupt(lying.bytes());
    }
    for (const std::uint64_t number :
         {std::uint64_t{0}, std::uint64_t{2}, std::uint64_t{1} << 40, UINT64_MAX}) {
        auto lying = list;
        lying.objectCount = number;
        expectCorrupt(lying.bytes());
    }
    for (const std::uint64_t number :
         {std::uint64_t{0}, std::uint64_t{7}, std::uint64_t{8}, std::uint64_t{13}, UINT64_MAX}) {
        auto lying = list;
        lying.tableOffset = number;
        expectCorrupt(lying.bytes());
    }
}

TEST(NSPropertyList, RefusesObjectsThatShareTheirBytes)
{
    // Two objects in the table are one array of the file.
    std::string bytes = "bplist00";
    bytes += collectionBytes(0xA0, {1});
    bytes += std::string("\0\x08\0\x08", 4);
    bytes += std::string("\0\0\0\0\0\0\x02\x02\0\0\0\0\0\0\0\x02\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x0B", 32);
    expectCorrupt(bytes);
}

TEST(NSPropertyList, ReadsSetsAsArraysAndBytesOfOtherEncodingsAsTexts)
{
    const std::string one("\x10\x01", 2);
    EXPECT_EQ(read(PropertyListBytes{{collectionBytes(0xC0, {1}), one}}.bytes()), NSAny(NSAny::Array{1}));
    EXPECT_EQ(read(PropertyListBytes{{"\x52\xC3\xA4"}}.bytes()), NSAny(u"\u00E4"));
    EXPECT_EQ(read(PropertyListBytes{{"\x51\xE4"}}.bytes()), NSAny(u"\u00E4"));
}

TEST(NSPropertyList, TellsAUIDFromANumber)
{
    EXPECT_NE(archiveUID(1), NSAny(1));
    EXPECT_EQ(archiveUID(1), archiveUID(1));
    EXPECT_EQ(archiveUID(1).hash(), archiveUID(1).hash());
    EXPECT_NE(archiveUID(1), archiveUID(2));
    EXPECT_EQ(readXML("<dict><key>CF$UID</key><integer>3</integer></dict>"), archiveUID(3));
    // With another key beside it, it is a dictionary like any.
    EXPECT_TRUE(
        readXML("<dict><key>CF$UID</key><integer>3</integer><key>b</key><true/></dict>").dictionary());
    EXPECT_TRUE(readXML("<dict><key>CF$UID</key><integer>-3</integer></dict>").dictionary());
}
