#pragma once

#include <cstdint>
#include <string>

namespace CLI {
class App;
}

inline constexpr const char* kServiceName = "corvel-indexing";
inline constexpr const char* kServiceSummary = "The search-indexing service: changes index files on request.";

/// What the service's command line says.
struct ServiceOptions {
    /// Empty for the default path.
    std::string socketPath;
    std::uint32_t idleSeconds = 60;
};

/// Declares the command line, whose values go into `options` when it is parsed.
void declareServiceOptions(CLI::App& program, ServiceOptions& options);
