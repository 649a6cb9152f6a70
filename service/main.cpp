#include "platform/foundation/NSLog.h"
#include "platform/xpc/NSXPCListener.h"
#include "platform/xpc/TerminationSignals.h"
#include "platform/xpc/UnixSocket.h"
#include "service/ProcessLimits.h"
#include "service/ServiceDelegate.h"

#include <CLI/CLI.hpp>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <string>

namespace {

constexpr std::uint32_t kDefaultIdleSeconds = 60;
constexpr int kUsageError = 2;

struct Settings {
    std::string socketPath = defaultSocketPath();
    std::uint32_t idleSeconds = kDefaultIdleSeconds;
};

void describeOptions(CLI::App& app, Settings& settings)
{
    app.set_version_flag("--version", std::string("corvel-indexing ") + CORVEL_VERSION);
    app.add_option("--socket", settings.socketPath, "Listen at this path unless systemd passes a socket")
        ->type_name("PATH")
        ->capture_default_str();
    app.add_option("--idle-timeout", settings.idleSeconds,
                   "End after this time without any connection; 0 means never")
        ->type_name("SECONDS")
        ->capture_default_str();
}

int serve(const Settings& settings)
{
    const TerminationSignals signals;
    NSXPCListenerOptions options;
    options.socketPath = settings.socketPath;
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
        Settings settings;
        CLI::App app("The search-indexing service: changes index files on request.", "corvel-indexing");
        describeOptions(app, settings);
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
