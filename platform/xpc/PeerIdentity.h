#pragma once

#include <optional>
#include <sys/types.h>

/// The user at the other end of a connected unix socket; none when the system does not tell.
[[nodiscard]] std::optional<uid_t> userOfPeer(int socket);

/// Whether a peer may talk to a service that runs as `serviceUser`: only that user itself, not even the
/// administrator, who can become the user first. An unknown peer may not.
[[nodiscard]] bool isPeerAccepted(std::optional<uid_t> peer, uid_t serviceUser);
