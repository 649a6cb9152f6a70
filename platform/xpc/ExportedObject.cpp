#include "platform/xpc/ExportedObject.h"

#include "platform/foundation/NSLog.h"
#include "platform/foundation/Unicode.h"
#include "platform/xpc/BusHandles.h"
#include "platform/xpc/NSXPCEncoder.h"

#include <systemd/sd-bus.h>

#include <cerrno>
#include <exception>
#include <utility>

namespace {

constexpr const char* kDictionarySignature = "a{sv}";

class SlotGuard {
public:
    explicit SlotGuard(RequestSlots& slots)
        : m_slots(slots)
    {
        m_slots.acquire();
    }

    SlotGuard(const SlotGuard&) = delete;
    SlotGuard& operator=(const SlotGuard&) = delete;

    ~SlotGuard() { m_slots.release(); }

private:
    RequestSlots& m_slots;
};

int sendDictionary(sd_bus_message* call, const NSXPCDictionary& dictionary)
{
    sd_bus_message* created = nullptr;
    if (const int result = sd_bus_message_new_method_return(call, &created); result < 0)
        return result;
    const BusMessage answer(created);
    NSXPCEncoder encoder(created);
    encoder.encodeDictionary(dictionary);
    if (encoder.result() < 0)
        return encoder.result();
    return sd_bus_message_send(created);
}

int refuseArguments(const NSXPCMethod& method, int result, sd_bus_error* error)
{
    const auto* name = result == -E2BIG ? SD_BUS_ERROR_LIMITS_EXCEEDED : SD_BUS_ERROR_INVALID_ARGS;
    return sd_bus_error_setf(error, name, "the arguments of %s cannot be read", method.name.c_str());
}

// Names of arguments as the table of methods takes them: each followed by a NUL.
std::string packedNames(const NSXPCMethod& method)
{
    std::string names;
    for (const auto& name : method.argumentNames)
        names.append(name).push_back('\0');
    if (method.hasReply)
        names.append("reply").push_back('\0');
    return names;
}

} // namespace

class ExportedObject::Dispatcher {
public:
    Dispatcher(NSXPCInterface interface, std::shared_ptr<NSObject> object, RequestSlots& slots);

    [[nodiscard]] int addToBus(sd_bus* bus);

private:
    static int handleCall(sd_bus_message* call, void* context, sd_bus_error* error) noexcept;
    [[nodiscard]] int carryOut(sd_bus_message* call, sd_bus_error* error);
    [[nodiscard]] int invoke(const NSXPCMethod& method, sd_bus_message* call, sd_bus_error* error);

    NSXPCInterface m_interface;
    std::shared_ptr<NSObject> m_object;
    RequestSlots& m_slots;
    std::vector<std::string> m_names;
    std::vector<sd_bus_vtable> m_methods;
};

ExportedObject::Dispatcher::Dispatcher(NSXPCInterface interface, std::shared_ptr<NSObject> object,
                                       RequestSlots& slots)
    : m_interface(std::move(interface))
    , m_object(std::move(object))
    , m_slots(slots)
{
    m_names.reserve(m_interface.methods().size());
    m_methods.push_back(SD_BUS_VTABLE_START(0));
    for (const auto& method : m_interface.methods()) {
        m_names.push_back(packedNames(method));
        m_methods.push_back(SD_BUS_METHOD_WITH_NAMES(
            method.name.c_str(), method.signature.c_str(), m_names.back().c_str(),
            method.hasReply ? kDictionarySignature : "", , &handleCall, SD_BUS_VTABLE_UNPRIVILEGED));
    }
    m_methods.push_back(SD_BUS_VTABLE_END);
}

int ExportedObject::Dispatcher::addToBus(sd_bus* bus)
{
    return sd_bus_add_object_vtable(bus, nullptr, m_interface.path().c_str(), m_interface.name().c_str(),
                                    m_methods.data(), this);
}

int ExportedObject::Dispatcher::handleCall(sd_bus_message* call, void* context, sd_bus_error* error) noexcept
{
    try {
        return static_cast<Dispatcher*>(context)->carryOut(call, error);
    } catch (...) {
        return sd_bus_error_setf(error, SD_BUS_ERROR_FAILED, "the call could not be carried out");
    }
}

int ExportedObject::Dispatcher::carryOut(sd_bus_message* call, sd_bus_error* error)
{
    const char* member = sd_bus_message_get_member(call);
    const auto* method = member ? m_interface.methodNamed(member) : nullptr;
    if (!method)
        return sd_bus_error_setf(error, SD_BUS_ERROR_UNKNOWN_METHOD, "no such method");
    const SlotGuard slot(m_slots);
    return invoke(*method, call, error);
}

int ExportedObject::Dispatcher::invoke(const NSXPCMethod& method, sd_bus_message* call, sd_bus_error* error)
{
    bool replied = false;
    bool sent = false;
    const NSXPCReply reply = [&](const NSXPCDictionary& dictionary) {
        if (std::exchange(replied, true))
            return;
        const int result = sendDictionary(call, dictionary);
        sent = result >= 0;
        if (!sent)
            NSLog("Couldn't send the answer of {}: error {}", method.name, -result);
    };
    NSXPCDecoder arguments(call);
    try {
        method.invoke(*m_object, arguments, reply);
    } catch (const std::exception& exception) {
        NSLog("{} was ended by an exception: {}", method.name, exception.what());
        return sent
            ? 1
            : sd_bus_error_setf(error, SD_BUS_ERROR_FAILED, "%s", validUTF8(exception.what()).c_str());
    }
    if (sent)
        return 1;
    if (!arguments.isGood())
        return refuseArguments(method, arguments.result(), error);
    if (method.hasReply)
        return sd_bus_error_setf(error, SD_BUS_ERROR_FAILED, "%s gave no answer", method.name.c_str());
    return sd_bus_reply_method_return(call, nullptr);
}

ExportedObject::ExportedObject(NSXPCInterface interface, std::shared_ptr<NSObject> object,
                               RequestSlots& slots)
    : m_dispatcher(std::make_unique<Dispatcher>(std::move(interface), std::move(object), slots))
{
}

ExportedObject::~ExportedObject() = default;

int ExportedObject::addToBus(sd_bus* bus)
{
    return m_dispatcher->addToBus(bus);
}
