#include "platform/xpc/NSXPCListener.h"

#include "platform/foundation/NSLog.h"
#include "platform/xpc/UnixSocket.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/xpc/BusClient.h"
#include "tests/xpc/RunningListener.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const char* kPath = "/test/Object";
constexpr const char* kInterface = "test.Interface";

/// Two threads meet here: one waits until the other has opened the gate.
class Gate {
public:
    void open()
    {
        const std::lock_guard lock(m_mutex);
        m_isOpen = true;
        m_changed.notify_all();
    }

    void pass()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_isOpen; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isOpen = false;
};

class TestObject : public NSObject {
public:
    Gate entered;
    Gate mayAnswer;
    std::atomic<int> callCount = 0;
};

void echo(NSObject& object, NSXPCDecoder& arguments, const NSXPCReply& reply)
{
    const std::string text(arguments.decodeString());
    if (!arguments.isGood())
        return;
    ++dynamic_cast<TestObject&>(object).callCount;
    reply({{"text", text}});
    reply({{"text", "a second answer"}});
}

void echoSlowly(NSObject& object, NSXPCDecoder& arguments, const NSXPCReply& reply)
{
    auto& target = dynamic_cast<TestObject&>(object);
    target.entered.open();
    target.mayAnswer.pass();
    echo(object, arguments, reply);
}

void answerBeforeWork(NSObject& object, NSXPCDecoder& arguments, const NSXPCReply& reply)
{
    auto& target = dynamic_cast<TestObject&>(object);
    echo(object, arguments, reply);
    target.mayAnswer.pass();
}

void raise(NSObject& /*object*/, NSXPCDecoder& arguments, const NSXPCReply& reply)
{
    const std::string text(arguments.decodeString());
    if (text == "after the answer")
        reply({});
    throw std::runtime_error("raised \xFF");
}

NSXPCInterface testInterface()
{
    return NSXPCInterface::interfaceWithProtocol(
        kInterface, kPath,
        {{"echo", "s", {"text"}, true, &echo},
         {"echoSlowly", "s", {"text"}, true, &echoSlowly},
         {"answerBeforeWork", "s", {"text"}, true, &answerBeforeWork},
         {"raise", "s", {"when"}, true, &raise},
         {"note", "s", {"text"}, false, [](NSObject& object, NSXPCDecoder&, const NSXPCReply&) {
              ++dynamic_cast<TestObject&>(object).callCount;
          }}});
}

class NSXPCListenerTest : public testing::Test {
protected:
    NSXPCListenerTest() { options.socketPath = folder.file("s/test.sock"); }

    RunningListener::Setup exporting(std::shared_ptr<NSObject> exported)
    {
        return [exported](NSXPCConnection& connection) {
            connection.setExportedInterface(testInterface());
            connection.setExportedObject(exported);
            connection.resume();
            return true;
        };
    }

    TemporaryFolder folder;
    NSXPCListenerOptions options;
    std::shared_ptr<TestObject> object = std::make_shared<TestObject>();
};

std::function<void(NSXPCEncoder&)> text(const std::string& value)
{
    return [value](NSXPCEncoder& encoder) { encoder.encodeString(value); };
}

std::string echoed(const BusClient::Answer& answer)
{
    if (!answer.message)
        return "no answer";
    NSXPCDecoder decoder(answer.message.get());
    const auto dictionary = decoder.decodeDictionary();
    const auto found = dictionary.find("text");
    return found == dictionary.end() ? "no text" : std::get<std::string>(found->second);
}

bool waitUntilClosed(int socket)
{
    char byte = 0;
    timeval patience{20, 0};
    (void)::setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof(patience));
    ssize_t count = 0;
    do
        count = ::recv(socket, &byte, 1, 0);
    while (count > 0);
    return count == 0 || errno == ECONNRESET;
}

void sendBytes(int socket, std::string_view bytes)
{
    ASSERT_EQ(::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL), static_cast<ssize_t>(bytes.size()));
}

} // namespace

TEST_F(NSXPCListenerTest, AnswersACallOnce)
{
    const RunningListener listener(options, exporting(object));
    const BusClient client(options.socketPath);
    EXPECT_EQ(echoed(client.call(kPath, kInterface, "echo", text("Grüße"))), "Grüße");
    EXPECT_EQ(echoed(client.call(kPath, kInterface, "echo", text("again"))), "again");
    EXPECT_EQ(object->callCount, 2);
}

TEST_F(NSXPCListenerTest, AcknowledgesAMethodWithoutReply)
{
    const RunningListener listener(options, exporting(object));
    const BusClient client(options.socketPath);
    EXPECT_EQ(client.call(kPath, kInterface, "note", text("x")).code, 0);
    EXPECT_EQ(object->callCount, 1);
}

TEST_F(NSXPCListenerTest, SendsTheAnswerWhileTheMethodStillRuns)
{
    const RunningListener listener(options, exporting(object));
    const BusClient client(options.socketPath);
    EXPECT_EQ(echoed(client.call(kPath, kInterface, "answerBeforeWork", text("early"))), "early");
    object->mayAnswer.open();
}

TEST_F(NSXPCListenerTest, AnswersWrongArgumentsWithAnErrorAndGoesOn)
{
    const RunningListener listener(options, exporting(object));
    const BusClient client(options.socketPath);
    const auto answer
        = client.call(kPath, kInterface, "echo", [](NSXPCEncoder& encoder) { encoder.encodeData("x"); });
    EXPECT_EQ(answer.errorName, "org.freedesktop.DBus.Error.InvalidArgs");
    EXPECT_EQ(client.call(kPath, kInterface, "unknown").errorName,
              "org.freedesktop.DBus.Error.UnknownMethod");
    EXPECT_EQ(client.call("/nowhere", kInterface, "echo", text("x")).errorName,
              "org.freedesktop.DBus.Error.UnknownObject");
    EXPECT_EQ(echoed(client.call(kPath, kInterface, "echo", text("still here"))), "still here");
}

TEST_F(NSXPCListenerTest, TurnsAnExceptionIntoAnErrorUnlessItAnswered)
{
    const NSLogCapture quiet([](std::string_view) {});
    const RunningListener listener(options, exporting(object));
    const BusClient client(options.socketPath);
    EXPECT_EQ(client.call(kPath, kInterface, "raise", text("at once")).errorName,
              "org.freedesktop.DBus.Error.Failed");
    EXPECT_EQ(client.call(kPath, kInterface, "raise", text("after the answer")).code, 0);
    EXPECT_EQ(echoed(client.call(kPath, kInterface, "echo", text("still here"))), "still here");
}

TEST_F(NSXPCListenerTest, AnswersWhatClientsAskAMessageBus)
{
    constexpr const char* kBusPath = "/org/freedesktop/DBus";
    constexpr const char* kBusInterface = "org.freedesktop.DBus";
    const RunningListener listener(options, exporting(object));
    const BusClient client(options.socketPath);
    const auto hello = client.call(kBusPath, kBusInterface, "Hello");
    ASSERT_TRUE(hello.message);
    NSXPCDecoder decoder(hello.message.get());
    EXPECT_EQ(decoder.decodeString(), ":1.1");
    EXPECT_EQ(client.call(kBusPath, kBusInterface, "AddMatch", text("type='signal'")).code, 0);
    EXPECT_EQ(client.call(kBusPath, kBusInterface, "GetNameOwner", text("a.b")).code, 0);
    EXPECT_EQ(client.call("/", "org.freedesktop.DBus.Peer", "Ping").code, 0);
    EXPECT_EQ(client.call(kPath, "org.freedesktop.DBus.Introspectable", "Introspect").code, 0);
}

TEST_F(NSXPCListenerTest, GivesEachConnectionItsOwnObject)
{
    std::vector<std::shared_ptr<TestObject>> objects{std::make_shared<TestObject>(),
                                                     std::make_shared<TestObject>()};
    std::size_t accepted = 0;
    const RunningListener listener(options, [&](NSXPCConnection& connection) {
        connection.setExportedInterface(testInterface());
        connection.setExportedObject(objects.at(accepted++));
        connection.resume();
        return true;
    });
    const BusClient first(options.socketPath);
    ASSERT_EQ(echoed(first.call(kPath, kInterface, "echo", text("1"))), "1");
    const BusClient second(options.socketPath);
    ASSERT_EQ(echoed(second.call(kPath, kInterface, "echo", text("2"))), "2");
    ASSERT_EQ(echoed(second.call(kPath, kInterface, "echo", text("3"))), "3");
    EXPECT_EQ(objects[0]->callCount, 1);
    EXPECT_EQ(objects[1]->callCount, 2);
}

TEST_F(NSXPCListenerTest, ServesOthersWhileOneRequestTakesItsTime)
{
    const RunningListener listener(options, exporting(object));
    const BusClient busy(options.socketPath);
    busy.send(kPath, kInterface, "echoSlowly", text("slow"));
    object->entered.pass();
    const BusClient other(options.socketPath);
    EXPECT_EQ(echoed(other.call(kPath, kInterface, "echo", text("quick"))), "quick");
    object->mayAnswer.open();
}

TEST_F(NSXPCListenerTest, LetsTheRequestInHandFinishWhenItStops)
{
    RunningListener listener(options, exporting(object));
    std::string answer;
    std::thread caller([&] {
        const BusClient client(options.socketPath);
        answer = echoed(client.call(kPath, kInterface, "echoSlowly", text("finished")));
    });
    object->entered.pass();
    listener.invalidate();
    object->mayAnswer.open();
    caller.join();
    listener.waitForEnd();
    EXPECT_EQ(answer, "finished");
    EXPECT_FALSE(std::filesystem::exists(options.socketPath));
}

TEST_F(NSXPCListenerTest, StopsForItsStopDescriptor)
{
    const EventDescriptor stop;
    options.stopDescriptor = stop.descriptor();
    RunningListener listener(options, exporting(object));
    stop.raise();
    listener.waitForEnd();
    EXPECT_FALSE(connectToSocket(options.socketPath).isValid());
}

TEST_F(NSXPCListenerTest, EndsWhenIdleButNotWhileSomebodyIsConnected)
{
    options.idleTimeout = std::chrono::milliseconds(50);
    RunningListener listener(options, exporting(object));
    {
        const BusClient client(options.socketPath);
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        EXPECT_EQ(echoed(client.call(kPath, kInterface, "echo", text("here"))), "here");
    }
    listener.waitForEnd();
    EXPECT_FALSE(std::filesystem::exists(options.socketPath));
}

TEST_F(NSXPCListenerTest, MalformedBytesEndThatConnectionOnly)
{
    const RunningListener listener(options, exporting(object));
    const BusClient neighbour(options.socketPath);
    for (const std::string_view bytes :
         {std::string_view("GET / HTTP/1.1\r\n\r\n"), std::string_view("\0AUTH NONSENSE\r\nBEGIN\r\n", 23),
          std::string_view("\0\0\0\0\0\0", 6), std::string_view("\0AUTH ANONYMOUS\r\nBEGIN\r\n", 24)}) {
        const auto socket = connectToSocket(options.socketPath);
        ASSERT_TRUE(socket.isValid());
        sendBytes(socket.get(), bytes);
        ASSERT_EQ(::shutdown(socket.get(), SHUT_WR), 0);
        EXPECT_TRUE(waitUntilClosed(socket.get()));
    }
    EXPECT_EQ(echoed(neighbour.call(kPath, kInterface, "echo", text("still here"))), "still here");
}

TEST_F(NSXPCListenerTest, AMessageTooLargeOrWithoutSenseEndsThatConnectionOnly)
{
    const RunningListener listener(options, exporting(object));
    const BusClient neighbour(options.socketPath);
    // Little endian, a call, no flags, version 1, then the lengths of body and header fields.
    constexpr std::string_view kTooLarge("l\1\0\1\xFF\xFF\xFF\x7F\1\0\0\0\x10\0\0\0", 16);
    constexpr std::string_view kNoSense("GET / HTTP/1.1\r\nHost: x\r\n\r\n");
    for (const auto message : {kTooLarge, kNoSense}) {
        const auto socket = connectToSocket(options.socketPath);
        ASSERT_TRUE(socket.isValid());
        std::string user;
        for (const char digit : std::to_string(::geteuid()))
            user += "3" + std::string(1, digit);
        sendBytes(socket.get(), std::string("\0", 1) + "AUTH EXTERNAL " + user + "\r\nBEGIN\r\n");
        sendBytes(socket.get(), message);
        EXPECT_TRUE(waitUntilClosed(socket.get()));
    }
    EXPECT_EQ(echoed(neighbour.call(kPath, kInterface, "echo", text("still here"))), "still here");
}

TEST_F(NSXPCListenerTest, FurtherConnectionsWaitForAPlace)
{
    options.maximumConnectionCount = 2;
    const RunningListener listener(options, exporting(object));
    auto first = std::make_unique<BusClient>(options.socketPath);
    const BusClient second(options.socketPath);
    ASSERT_EQ(echoed(first->call(kPath, kInterface, "echo", text("1"))), "1");
    ASSERT_EQ(echoed(second.call(kPath, kInterface, "echo", text("2"))), "2");
    std::atomic<bool> isAnswered = false;
    std::thread third([&] {
        const BusClient client(options.socketPath);
        EXPECT_EQ(echoed(client.call(kPath, kInterface, "echo", text("3"))), "3");
        isAnswered = true;
    });
    ASSERT_EQ(echoed(second.call(kPath, kInterface, "echo", text("4"))), "4");
    EXPECT_FALSE(isAnswered);
    first.reset();
    third.join();
    EXPECT_TRUE(isAnswered);
}

TEST_F(NSXPCListenerTest, ServesHundredsOfConnections)
{
    const RunningListener listener(options, exporting(object));
    std::vector<std::unique_ptr<BusClient>> clients;
    try {
        for (int count = 0; count < 400; ++count)
            clients.push_back(std::make_unique<BusClient>(options.socketPath));
    } catch (const std::runtime_error&) {
        GTEST_SKIP() << "the system gives this process too few descriptors";
    }
    for (const auto& client : clients)
        ASSERT_EQ(echoed(client->call(kPath, kInterface, "echo", text("x"))), "x");
}

TEST_F(NSXPCListenerTest, ARefusedConnectionIsClosed)
{
    const RunningListener listener(options, [](NSXPCConnection&) { return false; });
    const auto socket = connectToSocket(options.socketPath);
    ASSERT_TRUE(socket.isValid());
    EXPECT_TRUE(waitUntilClosed(socket.get()));
}
