#include "platform/xpc/PeerIdentity.h"

#include <sys/socket.h>

std::optional<uid_t> userOfPeer(int socket)
{
    ucred credentials{};
    socklen_t length = sizeof(credentials);
    if (::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &credentials, &length) != 0
        || length != sizeof(credentials))
        return std::nullopt;
    return credentials.uid;
}

bool isPeerAccepted(std::optional<uid_t> peer, uid_t serviceUser)
{
    return peer == serviceUser;
}
