#include "client/IndexingClient.h"

#include "client/ServiceLauncher.h"
#include "platform/xpc/BusHandles.h"
#include "platform/xpc/NSXPCDecoder.h"
#include "platform/xpc/NSXPCEncoder.h"
#include "platform/xpc/PeerIdentity.h"
#include "platform/xpc/UnixSocket.h"

#include <systemd/sd-bus.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <functional>
#include <unistd.h>
#include <utility>

namespace {

constexpr const char* kObjectPath = "/com/tessel/corvel/Indexing";
constexpr const char* kInterfaceName = "com.tessel.corvel.CVLIndexingProtocol";
/// A request reads whatever the item is made of; only a service that hangs takes longer.
constexpr std::uint64_t kAnswerTimeout = std::chrono::microseconds(std::chrono::minutes(30)).count();
constexpr unsigned kConnectAttempts = 3;

/// A D-Bus error with its texts.
class BusError {
public:
    BusError() = default;
    BusError(const BusError&) = delete;
    BusError& operator=(const BusError&) = delete;

    ~BusError() { sd_bus_error_free(&m_error); }

    [[nodiscard]] sd_bus_error* get() { return &m_error; }

    [[nodiscard]] const char* message() const { return m_error.message; }

private:
    sd_bus_error m_error{};
};

// How the wire says that the other end is gone depends on what it was doing just then.
bool isDisconnection(int code)
{
    return code == ECONNRESET || code == ENOTCONN || code == EPIPE || code == ESHUTDOWN;
}

NSError transportError(int code, const char* message)
{
    if (isDisconnection(code))
        return NSError::errorWithErrno(ECONNRESET, "the indexing service ended before it answered");
    return NSError::errorWithErrno(
        code, message ? std::string("the indexing service: ") + message : "the indexing service");
}

IndexingReply replyFromDictionary(const NSXPCDictionary& dictionary)
{
    IndexingReply reply;
    if (const auto found = dictionary.find("ItemIdentifier"); found != dictionary.end()) {
        if (const auto* identifier = std::get_if<std::string>(&found->second))
            reply.itemIdentifier = *identifier;
    }
    if (const auto found = dictionary.find("Error"); found != dictionary.end()) {
        const auto* error = std::get_if<std::shared_ptr<const NSError>>(&found->second);
        reply.error = error && *error ? **error : NSError(NSPOSIXErrorDomain, EPROTO);
    }
    return reply;
}

int openBus(FileDescriptor socket, BusHandle& bus)
{
    sd_bus* created = nullptr;
    if (const int result = sd_bus_new(&created); result < 0)
        return result;
    bus.reset(created);
    if (const int result = sd_bus_negotiate_fds(created, 0); result < 0)
        return result;
    if (const int result = sd_bus_set_fd(created, socket.get(), socket.get()); result < 0)
        return result;
    (void)socket.release(); // From here on the bus closes it.
    return sd_bus_start(created);
}

// Only an answer shows that somebody accepted the connection.
int ping(sd_bus* bus)
{
    sd_bus_message* created = nullptr;
    const int result
        = sd_bus_message_new_method_call(bus, &created, nullptr, "/", "org.freedesktop.DBus.Peer", "Ping");
    const BusMessage message(created);
    return result < 0 ? result : sd_bus_call(bus, created, kAnswerTimeout, nullptr, nullptr);
}

FileDescriptor openSocket(const IndexingClientOptions& options, NSError* error)
{
    auto socket = options.socketPath.empty()
        ? connectStartingService(defaultSocketPath(), options.servicePath, error)
        : connectToSocket(options.socketPath, error);
    if (socket.isValid() && !isPeerAccepted(userOfPeer(socket.get()), ::geteuid())) {
        setError(error, NSError::errorWithErrno(EPERM, "the socket belongs to another user's process"));
        return {};
    }
    return socket;
}

} // namespace

class IndexingClient::Connection {
public:
    explicit Connection(BusHandle bus)
        : m_bus(std::move(bus))
    {
    }

    using Arguments = std::function<void(NSXPCEncoder&)>;

    /// Sends one call and waits for its answer; null with the reason in `error` when there is none.
    [[nodiscard]] BusMessage call(const char* method, const Arguments& arguments, NSError* error) const;
    [[nodiscard]] std::optional<IndexingReply> request(const char* method, const Arguments& arguments,
                                                       NSError* error) const;

private:
    BusHandle m_bus;
};

BusMessage IndexingClient::Connection::call(const char* method, const Arguments& arguments,
                                            NSError* error) const
{
    sd_bus_message* created = nullptr;
    int result
        = sd_bus_message_new_method_call(m_bus.get(), &created, nullptr, kObjectPath, kInterfaceName, method);
    const BusMessage message(created);
    if (result >= 0) {
        NSXPCEncoder encoder(created);
        arguments(encoder);
        result = encoder.result();
    }
    BusError failure;
    sd_bus_message* answer = nullptr;
    if (result >= 0)
        result = sd_bus_call(m_bus.get(), created, kAnswerTimeout, failure.get(), &answer);
    if (result >= 0)
        return BusMessage(answer);
    setError(error, transportError(-result, failure.message()));
    return nullptr;
}

std::optional<IndexingReply>
IndexingClient::Connection::request(const char* method, const Arguments& arguments, NSError* error) const
{
    const auto answer = call(method, arguments, error);
    if (!answer)
        return std::nullopt;
    NSXPCDecoder decoder(answer.get());
    const auto dictionary = decoder.decodeDictionary();
    if (decoder.isGood())
        return replyFromDictionary(dictionary);
    setError(error, NSError::errorWithErrno(EPROTO, "the indexing service's answer"));
    return std::nullopt;
}

IndexingClient::IndexingClient(std::unique_ptr<Connection> connection)
    : m_connection(std::move(connection))
{
}

IndexingClient::~IndexingClient() = default;

std::unique_ptr<IndexingClient> IndexingClient::connect(const IndexingClientOptions& options, NSError* error)
{
    NSError reason;
    // A service that was about to end for want of work may take a connection with it; the next try starts
    // another.
    for (unsigned attempt = 0; attempt < kConnectAttempts; ++attempt) {
        auto socket = openSocket(options, error);
        if (!socket.isValid())
            return nullptr;
        BusHandle bus;
        int result = openBus(std::move(socket), bus);
        if (result >= 0)
            result = ping(bus.get());
        if (result >= 0)
            return std::unique_ptr<IndexingClient>(
                new IndexingClient(std::make_unique<Connection>(std::move(bus))));
        reason = transportError(-result, nullptr);
        if (!isDisconnection(-result))
            break;
    }
    setError(error, reason);
    return nullptr;
}

bool IndexingClient::setCustomFolderBookmarkData(std::string_view bookmarkData, NSError* error)
{
    const auto arguments = [&](NSXPCEncoder& encoder) { encoder.encodeData(bookmarkData); };
    return m_connection->call("setCustomFolderBookmarkData", arguments, error) != nullptr;
}

std::optional<IndexingReply>
IndexingClient::indexItemWithIdentifier(std::string_view identifier, std::string_view textRecognitionData,
                                        const NSURL& fileURL, const AttachmentsInfo& attachmentsInfo,
                                        const NSURL& indexFileURL, NSError* error)
{
    const auto arguments = [&](NSXPCEncoder& encoder) {
        encoder.encodeString(identifier);
        encoder.encodeData(textRecognitionData);
        encoder.encodeString(fileURL.absoluteString());
        encoder.encodeStringDictionaries(attachmentsInfo);
        encoder.encodeString(indexFileURL.absoluteString());
    };
    return m_connection->request("indexItemWithIdentifier", arguments, error);
}

std::optional<IndexingReply> IndexingClient::moveFileURL(const NSURL& fileURL, const NSURL& toFileURL,
                                                         const NSURL& indexFileURL, NSError* error)
{
    const auto arguments = [&](NSXPCEncoder& encoder) {
        encoder.encodeString(fileURL.absoluteString());
        encoder.encodeString(toFileURL.absoluteString());
        encoder.encodeString(indexFileURL.absoluteString());
    };
    return m_connection->request("moveFileURL", arguments, error);
}

std::optional<IndexingReply> IndexingClient::removeFileURLs(const std::vector<std::string>& fileURLs,
                                                            const NSURL& indexFileURL, NSError* error)
{
    const auto arguments = [&](NSXPCEncoder& encoder) {
        encoder.encodeStrings(fileURLs);
        encoder.encodeString(indexFileURL.absoluteString());
    };
    return m_connection->request("removeFileURLs", arguments, error);
}
