#pragma once

#include "cli/Command.h"

/// The commands of `corvel note`, each in a file of its own.
[[nodiscard]] Command addNoteRenderCommand(CLI::App& command);
[[nodiscard]] Command addNoteTextCommand(CLI::App& command);
