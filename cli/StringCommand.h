#pragma once

#include "cli/Command.h"

#include <vector>

/// The operations of `corvel string`, each a command below it, by subject.
[[nodiscard]] std::vector<Command> addStringNameCommands(CLI::App& command);
[[nodiscard]] std::vector<Command> addStringTextCommands(CLI::App& command);
[[nodiscard]] std::vector<Command> addStringMarkdownCommands(CLI::App& command);
