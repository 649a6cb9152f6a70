#pragma once

#include <optional>
#include <string>
#include <string_view>

/// What stands for standard input.
inline constexpr std::string_view kStandardInput = "-";

/// All of it. None, with errno set, when it cannot be read to its end.
[[nodiscard]] std::optional<std::string> readStandardInput();

/// A text that a command was given, byte for byte; all of standard input for "-". None, after a line on
/// standard error that names `command`, when it is not UTF-8 or cannot be read.
[[nodiscard]] std::optional<std::u16string> textOfArgument(const std::string& argument,
                                                           std::string_view command);

/// The same for a text that is one line: the line end that standard input ends with is no part of it.
[[nodiscard]] std::optional<std::u16string> lineOfArgument(const std::string& argument,
                                                           std::string_view command);

/// Writes a text to standard output and ends it with a line end unless it has one. On a terminal each of its
/// lines is made printable.
void printText(std::string_view text);
void printText(std::u16string_view text);
