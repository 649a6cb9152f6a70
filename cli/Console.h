#pragma once

#include <string>
#include <string_view>

/// Standard output and standard error as a command uses them. One call writes one whole line, whatever thread
/// makes it.

/// Whether standard output, or standard error, is a terminal that understands escape sequences.
[[nodiscard]] bool isOutputTerminal();
[[nodiscard]] bool isErrorTerminal();

/// Whether matches may be shown in bold: on a terminal, unless NO_COLOR is set.
[[nodiscard]] bool isOutputStyled();

/// Writes a line to standard output at once. A failure shows in `isOutputIntact`.
void printLine(std::string_view line);

/// Whether everything written so far arrived.
[[nodiscard]] bool isOutputIntact();

/// Writes "corvel: what: why" to standard error, with control characters replaced.
void printError(std::string_view what, std::string_view why);

/// Writes a line to standard error as it is.
void printNote(std::string_view line);

/// Shows `text` in place of the terminal line that the last call showed; empty clears it. Every other line on
/// standard error clears it first.
void showProgress(std::string_view text);

/// `text` with what could steer a terminal replaced by question marks, as one line of valid UTF-8.
[[nodiscard]] std::string printable(std::string_view text);

/// A path for people: relative to the current folder when it lies below, and printable when it goes to a
/// terminal.
[[nodiscard]] std::string displayPath(const std::string& path);
