#include "cli/Command.h"
#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "cli/StyleFields.h"
#include "platform/foundation/NSUserDefaults.h"
#include "platform/foundation/Unicode.h"
#include "styles/CVLNoteTextStyle.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace {

using Style = CVLNoteTextStyle;

constexpr const char* kExplanation
    = "The styles are kept in the user defaults, $XDG_CONFIG_HOME/corvel/defaults.plist. A STYLE is named by "
      "its "
      "identifier or by its name. The standard styles have names in the user's language; the "
      "English ones are understood too.\n"
      "\n"
      "Examples:\n"
      "  corvel style list\n"
      "  corvel style set Title --size 20 --colour '#204060'\n"
      "  corvel style add Quote --from Body --font Menlo";
constexpr const char* kListExplanation = "The default style for new text is marked with an asterisk.\n"
                                         "\n"
                                         "Examples:\n"
                                         "  corvel style list\n"
                                         "  corvel style list --json";
constexpr const char* kShowExplanation = "Examples:\n"
                                         "  corvel style show Title\n"
                                         "  corvel style show CVLNoteStyleIdentifierBody --json";
constexpr const char* kSetExplanation
    = "A standard style that is set back to what it is by default is not kept any more. Of a style that is "
      "applied "
      "to characters only the line and paragraph spacing of the paragraph can be changed.\n"
      "\n"
      "Examples:\n"
      "  corvel style set Title --size 20 --colour '#204060'\n"
      "  corvel style set Monospaced --default";
constexpr const char* kAddExplanation
    = "The new style looks like the style given with --from, or like Body, "
      "but for what the options say. It gets an "
      "identifier of its own, which is printed. Names need not be unique, but "
      "those of the standard styles are taken.\n"
      "\n"
      "Examples:\n"
      "  corvel style add Quote --font Georgia --size 13\n"
      "  corvel style add 'Small heading' --from Subheading --size 11";
constexpr const char* kResetExplanation = "Standard styles are as they are by default again. With --all so "
                                          "is the choice of the default style; custom "
                                          "styles stay.\n"
                                          "\n"
                                          "Examples:\n"
                                          "  corvel style reset Title\n"
                                          "  corvel style reset --all";
constexpr const char* kDeleteExplanation = "Examples:\n"
                                           "  corvel style delete Quote";

constexpr double kMinimumFontSize = 1;
constexpr double kMaximumPoints = 1000;
constexpr NSInteger kMaximumLineStyle = 0xFFFF;

struct StyleArguments {
    std::string style;
    std::optional<std::string> from;
    StyleChanges changes;
    bool isDefault = false;
    bool isAll = false;
    bool isJSON = false;
};

using Arguments = std::shared_ptr<StyleArguments>;

/// A command below `style`.
struct StyleAction {
    CLI::App* syntax = nullptr;
    std::function<ExitStatus()> run;
};

/// The names that are understood whatever the user's language is.
constexpr std::array<std::pair<std::u16string_view, CVLNoteTextStyleType>, 5> kEnglishNames = {{
    {u"Title", CVLNoteTextStyleType::Title},
    {u"Heading", CVLNoteTextStyleType::Heading},
    {u"Subheading", CVLNoteTextStyleType::Subheading},
    {u"Body", CVLNoteTextStyleType::Body},
    {u"Monospaced", CVLNoteTextStyleType::Monospaced},
}};

// Null when it is the English name of no standard style.
Style::Ref styleWithEnglishName(std::u16string_view name)
{
    for (const auto& [englishName, type] : kEnglishNames) {
        if (englishName != name)
            continue;
        for (const auto& style : Style::standardStyles())
            if (style->type() == type)
                return style;
    }
    return nullptr;
}

bool isNameOfStandardStyle(std::u16string_view name)
{
    const auto styles = Style::standardStyles();
    return styleWithEnglishName(name) != nullptr
        || std::ranges::any_of(styles, [&](const auto& style) { return style->name() == name; });
}

// Null, and said why, unless there is exactly one such style.
Style::Ref styleNamed(const std::string& text)
{
    const auto name = UTF16FromUTF8(text);
    if (auto style = Style::styleWithIdentifier(name))
        return style;
    Style::Ref found;
    for (const auto& style : Style::allStyles()) {
        if (style->name() != name)
            continue;
        if (found) {
            printError(text, "several styles have this name; give the identifier");
            return nullptr;
        }
        found = style;
    }
    // Last, as in another language the English name of one style may be the name of another.
    if (!found)
        found = styleWithEnglishName(name);
    if (!found)
        printError(text, "there is no such style");
    return found;
}

ExitStatus defaultsStatus()
{
    NSError error;
    if (NSUserDefaults::standardUserDefaults().synchronize(&error))
        return ExitStatus::Success;
    printError("user defaults", errorMessage(error));
    return ExitStatus::Failure;
}

void makeDefault(const std::u16string& identifier)
{
    NSUserDefaults::standardUserDefaults().setObject(identifier, CVLNoteTextStyleDefaultIdentifierKey);
}

ExitStatus listStyles(const StyleArguments& arguments)
{
    const auto standard = Style::defaultStyle();
    for (const auto& style : Style::allStyles()) {
        const bool isDefault = style == standard;
        printLine(arguments.isJSON ? styleLine(*style, isDefault) : styleListLine(*style, isDefault));
    }
    return ExitStatus::Success;
}

ExitStatus showStyle(const StyleArguments& arguments)
{
    const auto style = styleNamed(arguments.style);
    if (!style)
        return ExitStatus::Failure;
    const bool isDefault = style == Style::defaultStyle();
    printLine(arguments.isJSON ? styleLine(*style, isDefault) : styleText(*style, isDefault));
    return ExitStatus::Success;
}

ExitStatus setStyle(const StyleArguments& arguments)
{
    if (!arguments.isDefault && arguments.changes == StyleChanges())
        throw UsageError("style set: nothing to change");
    const auto style = styleNamed(arguments.style);
    if (!style)
        return ExitStatus::Failure;
    // A stored custom style may lack one.
    const auto identifier = style->identifier();
    if (arguments.isDefault && !identifier) {
        printError(arguments.style, "a style without an identifier cannot be the default style");
        return ExitStatus::Failure;
    }
    std::string reason;
    if (!applyChanges(arguments.changes, *style, reason)) {
        printError(arguments.style, reason);
        return ExitStatus::Failure;
    }
    Style::saveStylesToDefaults(Style::allStyles());
    if (arguments.isDefault && identifier)
        makeDefault(*identifier);
    return defaultsStatus();
}

// False, and said why, for a name by which another style is found.
bool isFreeName(const std::string& text)
{
    if (text.empty())
        throw UsageError("style add: a name may not be empty");
    if (!isValidUTF8(text))
        throw UsageError("style add: the name is not UTF-8");
    const auto name = UTF16FromUTF8(text);
    if (isNameOfStandardStyle(name)) {
        printError(text, "a standard style has this name");
        return false;
    }
    if (Style::styleWithIdentifier(name)) {
        printError(text, "this is the identifier of a style");
        return false;
    }
    return true;
}

ExitStatus addStyle(const StyleArguments& arguments)
{
    if (!isFreeName(arguments.style))
        return ExitStatus::Failure;
    const auto source = arguments.from ? styleNamed(*arguments.from) : Style::defaultBodyNoteTextStyle();
    if (!source)
        return ExitStatus::Failure;
    const auto style = Style::customStyleFromAttributes(source->attributes());
    style->setName(UTF16FromUTF8(arguments.style));
    style->setApplyToParagraph(source->applyToParagraph());
    style->setResetOnNewLine(source->resetOnNewLine());
    std::string reason;
    if (!applyChanges(arguments.changes, *style, reason)) {
        printError(arguments.style, reason);
        return ExitStatus::Failure;
    }
    // Every new custom style has one.
    const auto identifier = style->identifier().value_or(std::u16string());
    Style::addCustomStyle(style);
    if (arguments.isDefault)
        makeDefault(identifier);
    const auto status = defaultsStatus();
    if (status == ExitStatus::Success)
        printLine(UTF8FromUTF16(identifier));
    return status;
}

ExitStatus resetAllStyles()
{
    Style::saveStylesToDefaults(Style::customStyles());
    NSUserDefaults::standardUserDefaults().removeObjectForKey(CVLNoteTextStyleDefaultIdentifierKey);
    return defaultsStatus();
}

ExitStatus saveWithout(const Style::Ref& style)
{
    auto styles = Style::allStyles();
    std::erase(styles, style);
    Style::saveStylesToDefaults(styles);
    return defaultsStatus();
}

ExitStatus resetStyle(const StyleArguments& arguments)
{
    if (arguments.isAll != arguments.style.empty())
        throw UsageError("style reset: give a style, or --all");
    if (arguments.isAll)
        return resetAllStyles();
    const auto style = styleNamed(arguments.style);
    if (!style)
        return ExitStatus::Failure;
    if (style->type() == CVLNoteTextStyleType::Custom) {
        printError(arguments.style, "a custom style has nothing to go back to; see 'corvel style delete'");
        return ExitStatus::Failure;
    }
    return saveWithout(style);
}

ExitStatus deleteStyle(const StyleArguments& arguments)
{
    const auto style = styleNamed(arguments.style);
    if (!style)
        return ExitStatus::Failure;
    if (style->type() != CVLNoteTextStyleType::Custom) {
        printError(arguments.style, "a standard style always exists; see 'corvel style reset'");
        return ExitStatus::Failure;
    }
    return saveWithout(style);
}

// A number of points from `minimum` on. Not CLI::Range, which lets pass what is not a number.
CLI::Validator pointsFrom(double minimum)
{
    const auto check = [minimum](const std::string& text) {
        char* end = nullptr;
        const double value = std::strtod(text.c_str(), &end);
        const bool isNumber = !text.empty() && end == text.c_str() + text.size();
        if (isNumber && value >= minimum && value <= kMaximumPoints)
            return std::string();
        return fmt::format("Value {} not in range {} to {}", text, minimum, kMaximumPoints);
    };
    return {check, fmt::format("FLOAT in [{} - {}]", minimum, kMaximumPoints)};
}

void addChangeOptions(CLI::App& command, StyleChanges& changes)
{
    addTextOption(command, "--font", changes.font, "FONT",
                  "A PostScript name or a family: Menlo-Regular, Menlo");
    command.add_option("--size", changes.size, "The font's size in points")
        ->type_name("POINTS")
        ->check(pointsFrom(kMinimumFontSize));
    addTextOption(
        command, "--colour", changes.colour, "HEX",
        "#rrggbb, or none for the colour of text. Black and white are the colour of text too, as they "
        "could not be read in every appearance");
    for (const auto& [name, target, what] : {std::tuple{"--underline", &changes.underline, "under"},
                                             {"--strikethrough", &changes.strikethrough, "through"}})
        command
            .add_option(name, *target,
                        std::string("The line ") + what + " the text: 0 none, 1 single, 2 thick, 9 double")
            ->type_name("NUMBER")
            ->check(CLI::Range(NSInteger{0}, kMaximumLineStyle));
    command.add_option("--line-spacing", changes.lineSpacing, "The space between lines in points")
        ->type_name("POINTS")
        ->check(pointsFrom(0));
    command
        .add_option("--paragraph-spacing", changes.paragraphSpacing, "The space behind paragraphs in points")
        ->type_name("POINTS")
        ->check(pointsFrom(0));
}

StyleAction addListAction(CLI::App& command)
{
    auto arguments = std::make_shared<StyleArguments>();
    auto& action = addCommand(command, "list", "List all styles.", kListExplanation);
    action.add_flag("--json", arguments->isJSON, "One line of JSON for each style");
    return {&action, [arguments] { return listStyles(*arguments); }};
}

StyleAction addShowAction(CLI::App& command)
{
    auto arguments = std::make_shared<StyleArguments>();
    auto& action = addCommand(command, "show", "Show everything about a style.", kShowExplanation);
    action.add_flag("--json", arguments->isJSON, "One line of JSON");
    addTextArgument(action, "STYLE", arguments->style, "The identifier or the name");
    return {&action, [arguments] { return showStyle(*arguments); }};
}

StyleAction addSetAction(CLI::App& command)
{
    auto arguments = std::make_shared<StyleArguments>();
    auto& action = addCommand(command, "set", "Change a style.", kSetExplanation);
    addTextArgument(action, "STYLE", arguments->style, "The identifier or the name");
    addChangeOptions(action, arguments->changes);
    action.add_flag("--default", arguments->isDefault, "Make it the style of new text");
    return {&action, [arguments] { return setStyle(*arguments); }};
}

StyleAction addAddAction(CLI::App& command)
{
    auto arguments = std::make_shared<StyleArguments>();
    auto& action = addCommand(command, "add", "Add a custom style.", kAddExplanation);
    addTextArgument(action, "NAME", arguments->style, "The name of the new style");
    addTextOption(action, "--from", arguments->from, "STYLE", "The style to begin with (default: Body)");
    addChangeOptions(action, arguments->changes);
    action.add_flag("--default", arguments->isDefault, "Make it the style of new text");
    return {&action, [arguments] { return addStyle(*arguments); }};
}

StyleAction addResetAction(CLI::App& command)
{
    auto arguments = std::make_shared<StyleArguments>();
    auto& action = addCommand(command, "reset", "Undo the changes to standard styles.", kResetExplanation);
    addTextArgument(action, "STYLE", arguments->style, "The identifier or the name")->required(false);
    action.add_flag("--all", arguments->isAll, "All standard styles");
    return {&action, [arguments] { return resetStyle(*arguments); }};
}

StyleAction addDeleteAction(CLI::App& command)
{
    auto arguments = std::make_shared<StyleArguments>();
    auto& action = addCommand(command, "delete", "Delete a custom style.", kDeleteExplanation);
    addTextArgument(action, "STYLE", arguments->style, "The identifier or the name");
    return {&action, [arguments] { return deleteStyle(*arguments); }};
}

} // namespace

Command addStyleCommand(CLI::App& program)
{
    auto& command = addCommand(program, "style", "List and change the text styles that notes are written in.",
                               kExplanation);
    command.require_subcommand(1);
    const std::vector<StyleAction> actions
        = {addListAction(command), addShowAction(command),  addSetAction(command),
           addAddAction(command),  addResetAction(command), addDeleteAction(command)};
    return {&command, [actions] {
                for (const auto& action : actions)
                    if (action.syntax->parsed())
                        return action.run();
                return ExitStatus::Usage;
            }};
}
