#include "platform/foundation/FileDescriptor.h"
#include "platform/xpc/BusHandles.h"
#include "platform/xpc/NSXPCDecoder.h"
#include "platform/xpc/NSXPCEncoder.h"

#include <gtest/gtest.h>
#include <systemd/sd-bus.h>

#include <cerrno>
#include <sys/socket.h>

namespace {

/// A message that is written and then read without a connection.
class NSXPCCodingTest : public testing::Test {
protected:
    NSXPCCodingTest()
    {
        sd_bus* bus = nullptr;
        EXPECT_GE(sd_bus_new(&bus), 0);
        m_bus.reset(bus);
        int ends[2] = {};
        EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
        m_otherEnd = FileDescriptor(ends[1]);
        EXPECT_GE(sd_bus_set_fd(bus, ends[0], ends[0]), 0);
        EXPECT_GE(sd_bus_start(bus), 0);
        sd_bus_message* message = nullptr;
        EXPECT_GE(sd_bus_message_new_signal(bus, &message, "/a", "a.b", "c"), 0);
        m_message.reset(message);
    }

    sd_bus_message* message() { return m_message.get(); }

    void seal()
    {
        ASSERT_GE(sd_bus_message_seal(message(), 1, 0), 0);
        ASSERT_GE(sd_bus_message_rewind(message(), 1), 0);
    }

    NSXPCDictionary sent(const NSXPCDictionary& dictionary)
    {
        NSXPCEncoder encoder(message());
        encoder.encodeDictionary(dictionary);
        EXPECT_EQ(encoder.result(), 0);
        seal();
        NSXPCDecoder decoder(message());
        auto received = decoder.decodeDictionary();
        EXPECT_EQ(decoder.result(), 0);
        return received;
    }

private:
    FileDescriptor m_otherEnd;
    BusHandle m_bus;
    BusMessage m_message;
};

const NSError& errorIn(const NSXPCDictionary& dictionary, const std::string& key)
{
    return *std::get<std::shared_ptr<const NSError>>(dictionary.at(key));
}

unsigned depthOf(const NSError& error)
{
    return error.userInfo().empty() ? 1 : 1 + depthOf(errorIn(error.userInfo(), "e"));
}

} // namespace

TEST_F(NSXPCCodingTest, CarriesTextsAndErrorsWithinErrors)
{
    const auto underlying = std::make_shared<const NSError>("inner", 7);
    const auto error = std::make_shared<const NSError>(
        "outer", -3, NSXPCDictionary{{"NSUnderlyingError", underlying}, {"why", "because"}});
    const auto received = sent({{"ItemIdentifier", "a"}, {"Error", error}});
    EXPECT_EQ(received.size(), 2U);
    EXPECT_EQ(std::get<std::string>(received.at("ItemIdentifier")), "a");
    EXPECT_EQ(errorIn(received, "Error").domain(), "outer");
    EXPECT_EQ(errorIn(received, "Error").code(), -3);
    EXPECT_EQ(std::get<std::string>(errorIn(received, "Error").userInfo().at("why")), "because");
    EXPECT_EQ(errorIn(errorIn(received, "Error").userInfo(), "NSUnderlyingError").code(), 7);
}

TEST_F(NSXPCCodingTest, ReplacesWhatTheWireCannotCarry)
{
    const auto received = sent({{"k",
                                 std::string("a\xFF"
                                             "b\0c",
                                             5)}});
    EXPECT_EQ(std::get<std::string>(received.at("k")),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD"
              "c");
}

TEST_F(NSXPCCodingTest, LeavesOutErrorsThatAreTooDeep)
{
    auto error = std::make_shared<const NSError>("d", 0);
    for (int depth = 0; depth < 40; ++depth)
        error = std::make_shared<const NSError>("d", 0, NSXPCDictionary{{"e", error}});
    EXPECT_EQ(depthOf(errorIn(sent({{"e", error}}), "e")), 8U);
}

TEST_F(NSXPCCodingTest, CarriesAttachmentsAndLeavesOutValuesThatAreNoTexts)
{
    ASSERT_GE(sd_bus_message_append(message(), "a{sa{sv}}", 3, "a.png", 2, "TextRecognitionString", "s",
                                    "hello", "other", "i", 5, "b.png", 0, "c.png", 1, "deep", "av", 1, "s",
                                    "x"),
              0);
    seal();
    NSXPCDecoder decoder(message());
    const auto dictionaries = decoder.decodeStringDictionaries();
    ASSERT_TRUE(decoder.isGood());
    const NSXPCStringDictionaries expected{
        {"a.png", {{"TextRecognitionString", "hello"}}}, {"b.png", {}}, {"c.png", {}}};
    EXPECT_EQ(dictionaries, expected);
}

TEST_F(NSXPCCodingTest, CarriesDataAndLists)
{
    const std::string data("\0\1\xFF", 3);
    NSXPCEncoder encoder(message());
    encoder.encodeData(data);
    encoder.encodeData("");
    encoder.encodeStrings({"x", "", "y"});
    encoder.encodeStrings({});
    ASSERT_EQ(encoder.result(), 0);
    seal();
    NSXPCDecoder decoder(message());
    EXPECT_EQ(decoder.decodeData(), data);
    EXPECT_EQ(decoder.decodeData(), "");
    EXPECT_EQ(decoder.decodeStrings(), (std::vector<std::string_view>{"x", "", "y"}));
    EXPECT_TRUE(decoder.decodeStrings().empty());
    EXPECT_TRUE(decoder.isGood());
}

TEST_F(NSXPCCodingTest, StaysEmptyAfterAFailure)
{
    NSXPCEncoder encoder(message());
    encoder.encodeString("text");
    encoder.encodeString("more");
    seal();
    NSXPCDecoder decoder(message());
    EXPECT_TRUE(decoder.decodeData().empty());
    EXPECT_LT(decoder.result(), 0);
    EXPECT_EQ(decoder.decodeString(), "");
    EXPECT_TRUE(decoder.decodeDictionary().empty());
}

TEST_F(NSXPCCodingTest, RefusesMoreEntriesThanAnyHostSends)
{
    ASSERT_GE(sd_bus_message_open_container(message(), 'a', "{sa{sv}}"), 0);
    for (std::size_t count = 0; count <= NSXPCDecoder::kMaximumDictionaryEntryCount; ++count)
        ASSERT_GE(sd_bus_message_append(message(), "{sa{sv}}", "n", 0), 0);
    ASSERT_GE(sd_bus_message_close_container(message()), 0);
    seal();
    NSXPCDecoder decoder(message());
    (void)decoder.decodeStringDictionaries();
    EXPECT_EQ(decoder.result(), -E2BIG);
}
