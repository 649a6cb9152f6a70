#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/xpc/NSXPCDecoder.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Sends the answer of one call, at once and not when the method returns. The first call counts.
using NSXPCReply = std::function<void(const NSXPCDictionary&)>;

/// One method of an interface.
struct NSXPCMethod {
    std::string name;
    /// The arguments as a D-Bus signature, and their names as introspection shows them.
    std::string signature;
    std::vector<std::string> argumentNames;
    /// Whether the method answers with a dictionary; else the call is acknowledged when the method returns.
    bool hasReply = true;
    /// Takes all arguments and, if `arguments.isGood()` after that, carries the call out on `object`, which
    /// is the exported object. An exception is answered as a D-Bus error unless `reply` was called before.
    std::function<void(NSObject& object, NSXPCDecoder& arguments, const NSXPCReply& reply)> invoke;
};

/// A named set of methods at an object path: what a connection offers. Immutable, cheap to copy.
class NSXPCInterface {
public:
    /// `name` is a D-Bus interface name, `path` an object path; both have to be valid, and so do the methods'
    /// names.
    [[nodiscard]] static NSXPCInterface interfaceWithProtocol(std::string name, std::string path,
                                                              std::vector<NSXPCMethod> methods);

    [[nodiscard]] const std::string& name() const { return m_protocol->name; }

    [[nodiscard]] const std::string& path() const { return m_protocol->path; }

    [[nodiscard]] const std::vector<NSXPCMethod>& methods() const { return m_protocol->methods; }

    /// Null when there is no such method.
    [[nodiscard]] const NSXPCMethod* methodNamed(std::string_view name) const;

private:
    struct Protocol {
        std::string name;
        std::string path;
        std::vector<NSXPCMethod> methods;
    };

    explicit NSXPCInterface(std::shared_ptr<const Protocol> protocol)
        : m_protocol(std::move(protocol))
    {
    }

    std::shared_ptr<const Protocol> m_protocol;
};
