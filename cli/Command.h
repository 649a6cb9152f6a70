#pragma once

#include <functional>
#include <stdexcept>

namespace CLI {
class App;
}

/// What the program ends with.
enum class ExitStatus : int {
    Success = 0,
    /// Something that was asked for could not be done; standard error says what.
    Failure = 1,
    /// The command line could not be understood.
    Usage = 2,
    /// What was to be checked cannot be read at all.
    Unreadable = 3,
};

/// Raised by a command for arguments that are each well-formed but do not go together.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One command of the program: its syntax, which the program's parser owns, and what to do once that was
/// understood. `run` may raise UsageError, and SKIndexException for a damaged index.
struct Command {
    CLI::App* syntax = nullptr;
    std::function<ExitStatus()> run;
};

[[nodiscard]] Command addCheckCommand(CLI::App& program);
[[nodiscard]] Command addChecklistCommand(CLI::App& program);
[[nodiscard]] Command addColourCommand(CLI::App& program);
[[nodiscard]] Command addCreateCommand(CLI::App& program);
[[nodiscard]] Command addHTMLCommand(CLI::App& program);
[[nodiscard]] Command addIndexCommand(CLI::App& program);
[[nodiscard]] Command addMoveCommand(CLI::App& program);
[[nodiscard]] Command addNoteCommand(CLI::App& program);
[[nodiscard]] Command addRemoveCommand(CLI::App& program);
[[nodiscard]] Command addSearchCommand(CLI::App& program);
[[nodiscard]] Command addStatusCommand(CLI::App& program);
[[nodiscard]] Command addStringCommand(CLI::App& program);
[[nodiscard]] Command addStyleCommand(CLI::App& program);
[[nodiscard]] Command addTextCommand(CLI::App& program);
