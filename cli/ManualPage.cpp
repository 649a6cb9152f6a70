#include "cli/ManualPage.h"

#include "cli/HelpFooter.h"
#include "platform/foundation/Unicode.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <string_view>

namespace {

std::string withoutBlanks(std::string text)
{
    CLI::detail::trim(text);
    return text;
}

std::string bold(const std::string& text)
{
    return "\\fB" + roffText(text) + "\\fR";
}

std::string italic(const std::string& text)
{
    return "\\fI" + roffText(text) + "\\fR";
}

bool takesValue(const CLI::Option& option)
{
    return option.get_items_expected_max() > 0;
}

bool takesSeveral(const CLI::Option& option)
{
    return option.get_items_expected_max() > 1;
}

/// "--jobs N", or "PATH..." for a positional argument.
std::string usageOf(const CLI::Option& option)
{
    if (option.get_positional())
        return italic(option.get_name(true)) + (takesSeveral(option) ? "..." : "");
    const auto name = option.get_lnames().empty() ? "-" + option.get_snames().front()
                                                  : "--" + option.get_lnames().front();
    return takesValue(option) ? bold(name) + " " + italic(withoutBlanks(option.get_type_name())) : bold(name);
}

/// All names of an option, "-h, --help", and its value.
std::string headingOf(const CLI::Option& option)
{
    if (option.get_positional())
        return usageOf(option);
    std::vector<std::string> names;
    for (const auto& name : option.get_snames())
        names.push_back(bold("-" + name));
    for (const auto& name : option.get_lnames())
        names.push_back(bold("--" + name));
    const auto heading = fmt::format("{}", fmt::join(names, ", "));
    return takesValue(option) ? heading + " " + italic(withoutBlanks(option.get_type_name())) : heading;
}

bool isHelp(const CLI::Option& option)
{
    const auto& names = option.get_lnames();
    return std::find(names.begin(), names.end(), "help") != names.end();
}

/// "corvel index --index INDEX [--jobs N] PATH..." without the command's name, arguments last.
std::string synopsisOf(const CLI::App& command)
{
    std::string options;
    std::string arguments;
    for (const auto* option : command.get_options()) {
        if (isHelp(*option))
            continue;
        const auto usage = usageOf(*option);
        (option->get_positional() ? arguments : options)
            += option->get_required() ? " " + usage : " [" + usage + "]";
    }
    if (!command.get_subcommands({}).empty())
        arguments += " " + italic("COMMAND") + " ...";
    return options + arguments;
}

class Page {
public:
    void macro(std::string_view line)
    {
        m_roff += line;
        m_roff += '\n';
    }

    void text(const std::string& utf8)
    {
        if (!utf8.empty())
            macro(roffText(utf8));
    }

    void paragraphs(const std::vector<std::string>& texts)
    {
        for (const auto& paragraph : texts) {
            macro(".PP");
            text(paragraph);
        }
    }

    void examples(const std::vector<std::string>& lines)
    {
        macro(".PP\n.nf");
        for (const auto& line : lines)
            text(line);
        macro(".fi");
    }

    void options(const CLI::App& command)
    {
        for (const auto* option : command.get_options()) {
            macro(".TP\n" + headingOf(*option));
            const auto& value = option->get_default_str();
            text(option->get_description() + (value.empty() ? "" : " (default: " + value + ")"));
        }
    }

    void subcommand(const CLI::App& command, const std::string& invocation)
    {
        const HelpFooter footer(command.get_footer());
        macro(".SS \"" + roffText(command.get_name()) + "\"");
        macro(bold(invocation) + synopsisOf(command));
        macro(".PP");
        text(command.get_description());
        paragraphs(footer.explanation);
        options(command);
        if (footer.examples.empty())
            return;
        macro(".PP\nFor example:");
        examples(footer.examples);
    }

    [[nodiscard]] std::string roff() && { return std::move(m_roff); }

private:
    std::string m_roff;
};

/// The command as it is typed: "corvel index" for the page "corvel-index".
std::string invocationOf(const CLI::App& command)
{
    const auto* parent = command.get_parent();
    return parent ? invocationOf(*parent) + " " + command.get_name() : command.get_name();
}

void addCommandList(Page& page, const CLI::App& program)
{
    page.macro(".SH COMMANDS");
    for (const auto* command : program.get_subcommands({})) {
        page.macro(".TP\n" + bold(program.get_name() + "-" + command->get_name()) + "(1)");
        page.text(command->get_description());
    }
}

void addCommands(Page& page, const CLI::App& command, const std::string& invocation)
{
    page.macro(".SH COMMANDS");
    for (const auto* subcommand : command.get_subcommands({}))
        page.subcommand(*subcommand, invocation + " " + subcommand->get_name());
}

std::string summaryOf(const CLI::App& command)
{
    auto summary = command.get_description();
    if (summary.ends_with('.'))
        summary.pop_back();
    return summary;
}

} // namespace

std::string roffText(const std::string& utf8)
{
    // What roff would read, or show as typographers' characters.
    static const std::map<char32_t, std::string_view> kEscapes
        = {{U'\\', "\\(rs"}, {U'-', "\\-"},   {U'\'', "\\(aq"}, {U'`', "\\(ga"},
           {U'^', "\\(ha"},  {U'~', "\\(ti"}, {U'"', "\\(dq"}};
    std::string text;
    bool isLineStart = true;
    for (std::size_t offset = 0; offset < utf8.size();) {
        const auto character = nextCodePoint(utf8, offset);
        if (isLineStart && character == U'.')
            text += "\\&";
        isLineStart = character == U'\n';
        const auto escape = kEscapes.find(character);
        if (escape != kEscapes.end())
            text += escape->second;
        else if (character > 0x7E)
            fmt::format_to(std::back_inserter(text), "\\[u{:04X}]", static_cast<std::uint32_t>(character));
        else if (character == U'\n' || character >= U' ')
            text += static_cast<char>(character);
    }
    return text;
}

std::string ManualPage::fileName() const
{
    return fmt::format("{}.{}", name, section);
}

ManualPage manualPage(const CLI::App& command, const std::string& name, int section)
{
    const HelpFooter footer(command.get_footer());
    const auto invocation = invocationOf(command);
    const bool isProgram = !command.get_parent();
    Page page;
    page.macro(fmt::format(R"(.TH "{}" {} "" "corvel")", roffText(name), section));
    page.macro(".SH NAME");
    page.macro(roffText(name) + " \\- " + roffText(summaryOf(command)));
    page.macro(".SH SYNOPSIS");
    page.macro(bold(invocation) + synopsisOf(command));
    page.macro(".SH DESCRIPTION");
    page.text(command.get_description());
    page.paragraphs(footer.explanation);
    page.macro(".SH OPTIONS");
    page.options(command);
    if (!command.get_subcommands({}).empty() && isProgram)
        addCommandList(page, command);
    else if (!command.get_subcommands({}).empty())
        addCommands(page, command, invocation);
    if (!footer.examples.empty()) {
        page.macro(".SH EXAMPLES");
        page.examples(footer.examples);
    }
    if (!footer.exitStatus.empty()) {
        page.macro(".SH EXIT STATUS");
        page.text(footer.exitStatus);
    }
    if (!isProgram) {
        page.macro(".SH SEE ALSO");
        page.macro(bold(command.get_parent()->get_name()) + "(1)");
    }
    return {name, section, std::move(page).roff()};
}

std::vector<ManualPage> manualPages(const CLI::App& program)
{
    std::vector<ManualPage> pages = {manualPage(program, program.get_name(), 1)};
    for (const auto* command : program.get_subcommands({}))
        pages.push_back(manualPage(*command, program.get_name() + "-" + command->get_name(), 1));
    return pages;
}
