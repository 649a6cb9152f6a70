#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

/// A page of the manual, made of what a command declares to its parser: the one source of --help and manual.
struct ManualPage {
    /// "corvel-index"; the page's file is named after it and the section.
    std::string name;
    int section = 1;
    /// The page in the man macros, in ASCII.
    std::string roff;

    [[nodiscard]] std::string fileName() const;
};

/// The page of one program or command. Its footer gives the explanation; what follows the line "Examples:" in
/// it, the examples; and a paragraph that begins "Exit status:", the section of that name. Commands below it
/// are described on the same page.
[[nodiscard]] ManualPage manualPage(const CLI::App& command, const std::string& name, int section);

/// The page of a program and, where it has commands, a page for each of them, which it names.
[[nodiscard]] std::vector<ManualPage> manualPages(const CLI::App& program);

/// A text for roff to show as it stands, in ASCII: nothing in it is taken for a command or a special
/// character.
[[nodiscard]] std::string roffText(const std::string& utf8);
