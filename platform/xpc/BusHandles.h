#pragma once

#include <memory>

struct sd_bus;
struct sd_bus_message;

struct BusCloser {
    void operator()(sd_bus* bus) const;
};

struct BusMessageReleaser {
    void operator()(sd_bus_message* message) const;
};

/// A connection's wire; closed, without waiting for what is still unsent, when it goes.
using BusHandle = std::unique_ptr<sd_bus, BusCloser>;

/// One reference to a message.
using BusMessage = std::unique_ptr<sd_bus_message, BusMessageReleaser>;
