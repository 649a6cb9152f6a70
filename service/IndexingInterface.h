#pragma once

#include "platform/xpc/NSXPCInterface.h"

/// CVLIndexingProtocol as it is offered on a connection; the exported object has to be one.
[[nodiscard]] NSXPCInterface indexingInterface();
