#include "service/ServiceOptions.h"

#include <CLI/CLI.hpp>

void declareServiceOptions(CLI::App& program, ServiceOptions& options)
{
    program.set_version_flag("--version", "corvel-indexing " CORVEL_VERSION);
    program
        .add_option("--socket", options.socketPath,
                    "Listen at this path unless systemd passes a socket "
                    "(default: corvel/indexing.sock in the user's runtime folder)")
        ->type_name("PATH");
    program
        .add_option("--idle-timeout", options.idleSeconds,
                    "End after this time without any connection; 0 means never")
        ->type_name("SECONDS")
        ->capture_default_str();
}
