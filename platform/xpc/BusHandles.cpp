#include "platform/xpc/BusHandles.h"

#include <systemd/sd-bus.h>

void BusCloser::operator()(sd_bus* bus) const
{
    sd_bus_close_unref(bus);
}

void BusMessageReleaser::operator()(sd_bus_message* message) const
{
    sd_bus_message_unref(message);
}
