#include "platform/foundation/NSLog.h"
#include "platform/xpc/NSXPCListener.h"
#include "platform/xpc/TerminationSignals.h"
#include "platform/xpc/UnixSocket.h"
#include "service/ProcessLimits.h"
#include "service/ServiceDelegate.h"
#include "service/ServiceOptions.h"

#include <CLI/CLI.hpp>

#include <chrono>
#include <cstdlib>
#include <exception>

namespace {

constexpr int kUsageError = 2;

int serve(const ServiceOptions& settings)
{
    const TerminationSignals signals;
    NSXPCListenerOptions options;
    options.socketPath = settings.socketPath.empty() ? defaultSocketPath() : settings.socketPath;
    options.stopDescriptor = signals.descriptor();
    if (settings.idleSeconds > 0)
        options.idleTimeout = std::chrono::seconds(settings.idleSeconds);

    ServiceDelegate delegate;
    NSError error;
    const auto listener = NSXPCListener::serviceListener(options, &error);
    if (!listener) {
        NSLog("corvel-indexing: cannot listen: {}", error.localizedDescription());
        return EXIT_FAILURE;
    }
    listener->setDelegate(&delegate);
    listener->resume();
    return EXIT_SUCCESS;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    try {
        ServiceOptions settings;
        CLI::App app(kServiceSummary, kServiceName);
        declareServiceOptions(app, settings);
        try {
            app.parse(argumentCount, arguments);
        } catch (const CLI::ParseError& error) {
            return app.exit(error) == EXIT_SUCCESS ? EXIT_SUCCESS : kUsageError;
        }
        adjustProcessLimits();
        return serve(settings);
    } catch (const std::exception& exception) {
        NSLog("corvel-indexing: {}", exception.what());
        return EXIT_FAILURE;
    }
}
