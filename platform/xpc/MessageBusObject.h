#pragma once

struct sd_bus;

/// Puts an object at /org/freedesktop/DBus that answers what clients of a message bus ask before they make a
/// call: Hello, match rules (accepted, and without meaning: nothing is broadcast here) and who owns a name
/// (this service, whatever the name). There is no bus; there are just the two ends of the connection.
/// @return 0 or more, else a negative errno.
[[nodiscard]] int addMessageBusObject(sd_bus* bus);
