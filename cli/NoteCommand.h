#pragma once

#include "cli/Command.h"

/// The commands of `corvel note`, each in a file of its own.
[[nodiscard]] Command addNoteCheckCommand(CLI::App& command);
[[nodiscard]] Command addNoteExportCommand(CLI::App& command);
[[nodiscard]] Command addNoteInfoCommand(CLI::App& command);
[[nodiscard]] Command addNoteNewCommand(CLI::App& command);
[[nodiscard]] Command addNoteRenderCommand(CLI::App& command);
[[nodiscard]] Command addNoteTextCommand(CLI::App& command);
