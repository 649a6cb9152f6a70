#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

/// What the commands' syntaxes have in common. The strings must outlive the parsing.

/// A command with its one-line summary, and the explanation and examples with which its --help ends.
[[nodiscard]] CLI::App& addCommand(CLI::App& program, const std::string& name, const std::string& summary,
                                   const std::string& explanation);

/// The required option --index INDEX.
void addIndexOption(CLI::App& command, std::string& indexPath);

/// --socket PATH of the service to talk to.
void addSocketOption(CLI::App& command, std::string& socketPath);

/// An option with a value, which arrives byte for byte.
CLI::Option* addTextOption(CLI::App& command, const std::string& name, std::optional<std::string>& text,
                           const std::string& valueName, const std::string& description);

/// The same, for a path: not empty.
void addPathOption(CLI::App& command, const std::string& name, std::optional<std::string>& path,
                   const std::string& valueName, const std::string& description);

/// A required positional argument, which arrives byte for byte.
CLI::Option* addTextArgument(CLI::App& command, const std::string& name, std::string& text,
                             const std::string& description);

/// A required positional argument that is one text or more, empty ones too.
[[nodiscard]] CLI::Option* addTextArguments(CLI::App& command, const std::string& name,
                                            const std::string& description);

/// What was given for addTextArguments, byte for byte.
[[nodiscard]] std::vector<std::string> givenTexts(const CLI::Option& option);

/// A required positional argument that is one path.
void addPathArgument(CLI::App& command, const std::string& name, std::string& path,
                     const std::string& description);

/// A required positional argument that is one path or more.
[[nodiscard]] CLI::Option* addPathArguments(CLI::App& command, const std::string& name,
                                            const std::string& description);

/// What was given for addPathArguments, byte for byte.
[[nodiscard]] std::vector<std::string> givenPaths(const CLI::Option& option);

/// The program's arguments, without its name, in the form in which the parser is to have them: it would take
/// a file named "[a,b]" for two. What is declared through the functions above arrives as it was.
[[nodiscard]] std::vector<std::string> argumentsForParser(int argumentCount, const char* const* arguments);
