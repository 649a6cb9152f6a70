#include "platform/xpc/NSXPCInterface.h"

#include <algorithm>
#include <utility>

NSXPCInterface NSXPCInterface::interfaceWithProtocol(std::string name, std::string path,
                                                     std::vector<NSXPCMethod> methods)
{
    return NSXPCInterface(
        std::make_shared<const Protocol>(Protocol{std::move(name), std::move(path), std::move(methods)}));
}

const NSXPCMethod* NSXPCInterface::methodNamed(std::string_view name) const
{
    const auto found = std::find_if(methods().begin(), methods().end(),
                                    [name](const NSXPCMethod& method) { return method.name == name; });
    return found == methods().end() ? nullptr : &*found;
}
