#pragma once

#include "cli/Command.h"

#include <vector>

/// Declares what `corvel` understands, all its commands included.
[[nodiscard]] std::vector<Command> addCommands(CLI::App& program);

inline constexpr const char* kProgramName = "corvel";
inline constexpr const char* kProgramSummary
    = "Keep a full-text index of files, notes and mail, and search it.";
