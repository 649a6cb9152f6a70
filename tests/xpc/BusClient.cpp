#include "tests/xpc/BusClient.h"

#include "platform/xpc/UnixSocket.h"

#include <systemd/sd-bus.h>

#include <stdexcept>

namespace {

BusMessage newCall(sd_bus* bus, const char* path, const char* interface, const char* method,
                   const std::function<void(NSXPCEncoder&)>& arguments)
{
    sd_bus_message* created = nullptr;
    if (sd_bus_message_new_method_call(bus, &created, "any.name.at.all", path, interface, method) < 0)
        throw std::runtime_error("no message");
    BusMessage message(created);
    NSXPCEncoder encoder(created);
    if (arguments)
        arguments(encoder);
    if (encoder.result() < 0)
        throw std::runtime_error("the arguments cannot be written");
    return message;
}

} // namespace

BusClient::BusClient(const std::string& socketPath)
{
    auto socket = connectToSocket(socketPath);
    sd_bus* created = nullptr;
    if (!socket.isValid() || sd_bus_new(&created) < 0)
        throw std::runtime_error("cannot connect to " + socketPath);
    m_bus.reset(created);
    if (sd_bus_set_fd(created, socket.get(), socket.get()) < 0)
        throw std::runtime_error("cannot use the socket");
    (void)socket.release();
    if (sd_bus_start(created) < 0)
        throw std::runtime_error("cannot start");
}

BusClient::Answer BusClient::call(const char* path, const char* interface, const char* method,
                                  const std::function<void(NSXPCEncoder&)>& arguments) const
{
    const auto message = newCall(m_bus.get(), path, interface, method, arguments);
    sd_bus_error error{};
    sd_bus_message* answer = nullptr;
    const int result = sd_bus_call(m_bus.get(), message.get(), 60'000'000, &error, &answer);
    Answer outcome{BusMessage(answer), sd_bus_error_is_set(&error) ? error.name : "",
                   result < 0 ? -result : 0};
    sd_bus_error_free(&error);
    return outcome;
}

void BusClient::send(const char* path, const char* interface, const char* method,
                     const std::function<void(NSXPCEncoder&)>& arguments) const
{
    const auto message = newCall(m_bus.get(), path, interface, method, arguments);
    if (sd_bus_send(m_bus.get(), message.get(), nullptr) < 0 || sd_bus_flush(m_bus.get()) < 0)
        throw std::runtime_error("cannot send");
}
