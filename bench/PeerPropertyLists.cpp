#include "bench/PeerPropertyLists.h"

#include <stdexcept>

#ifdef CORVEL_HAS_LIBPLIST

#include <plist/plist.h>

#include <cstdint>
#include <memory>

bool hasPeerOfPropertyLists()
{
    return true;
}

void readPropertyListWithPeer(std::string_view bytes)
{
    plist_t list = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &list);
    const std::unique_ptr<void, decltype(&plist_free)> owner(list, plist_free);
    if (!owner)
        throw std::runtime_error("libplist did not read the property list");
}

#else

bool hasPeerOfPropertyLists()
{
    return false;
}

void readPropertyListWithPeer(std::string_view /*bytes*/)
{
    throw std::logic_error("libplist is not installed");
}

#endif
