#include "platform/xpc/MessageBusObject.h"

#include <systemd/sd-bus.h>

#include <cstdint>

namespace {

constexpr const char* kPath = "/org/freedesktop/DBus";
constexpr const char* kInterface = "org.freedesktop.DBus";
constexpr const char* kServiceName = ":1.0";
constexpr const char* kClientName = ":1.1";
constexpr std::uint32_t kAlreadyRunning = 2;
constexpr std::uint32_t kPrimaryOwner = 1;

int hello(sd_bus_message* message, void* /*context*/, sd_bus_error* /*error*/)
{
    return sd_bus_reply_method_return(message, "s", kClientName);
}

int acknowledge(sd_bus_message* message, void* /*context*/, sd_bus_error* /*error*/)
{
    return sd_bus_reply_method_return(message, nullptr);
}

int getNameOwner(sd_bus_message* message, void* /*context*/, sd_bus_error* /*error*/)
{
    return sd_bus_reply_method_return(message, "s", kServiceName);
}

int nameHasOwner(sd_bus_message* message, void* /*context*/, sd_bus_error* /*error*/)
{
    return sd_bus_reply_method_return(message, "b", 1);
}

int listNames(sd_bus_message* message, void* /*context*/, sd_bus_error* /*error*/)
{
    return sd_bus_reply_method_return(message, "as", 2, kServiceName, kClientName);
}

int startServiceByName(sd_bus_message* message, void* /*context*/, sd_bus_error* /*error*/)
{
    return sd_bus_reply_method_return(message, "u", kAlreadyRunning);
}

int requestName(sd_bus_message* message, void* /*context*/, sd_bus_error* /*error*/)
{
    return sd_bus_reply_method_return(message, "u", kPrimaryOwner);
}

const sd_bus_vtable kMethods[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Hello", "", "s", hello, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("AddMatch", "s", "", acknowledge, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("RemoveMatch", "s", "", acknowledge, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("GetNameOwner", "s", "s", getNameOwner, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("NameHasOwner", "s", "b", nameHasOwner, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("ListNames", "", "as", listNames, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("ListActivatableNames", "", "as", listNames, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("StartServiceByName", "su", "u", startServiceByName, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("RequestName", "su", "u", requestName, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

} // namespace

int addMessageBusObject(sd_bus* bus)
{
    return sd_bus_add_object_vtable(bus, nullptr, kPath, kInterface, kMethods, nullptr);
}
