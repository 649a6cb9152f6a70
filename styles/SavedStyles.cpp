#include "styles/SavedStyles.h"

#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSUserDefaults.h"
#include "styles/StyleClasses.h"

#include <optional>

namespace {

using Styles = std::vector<CVLNoteTextStyle::Ref>;

// None when an element is no style.
std::optional<Styles> stylesOf(const NSAny::Array& array)
{
    Styles styles;
    for (const auto& element : array) {
        styles.push_back(element.mutableObject<CVLNoteTextStyle>());
        if (!styles.back())
            return std::nullopt;
    }
    return styles;
}

NSError noStylesError()
{
    return NSError::errorWithCode(NSCocoaError::FileReadCorruptFile, "the value is no archive of styles");
}

std::optional<Styles> unarchivedStyles(const NSAny& value, NSError& error)
{
    const auto* data = value.data();
    if (!data) {
        error = noStylesError();
        return std::nullopt;
    }
    const auto root = NSKeyedUnarchiver::unarchivedObjectOfClasses(
        {&NSArrayClass, &CVLNoteTextStyle::classObject()}, data->bytes, styleClasses(), &error);
    if (root.isNil() && !error.domain().empty())
        return std::nullopt;
    const auto* array = root.array();
    auto styles = array ? stylesOf(*array) : std::nullopt;
    if (!styles)
        error = noStylesError();
    return styles;
}

} // namespace

std::vector<CVLNoteTextStyle::Ref> savedStyles()
{
    const auto value = NSUserDefaults::standardUserDefaults().objectForKey(CVLNoteTextStylesDefaultsKey);
    if (value.isNil())
        return {};
    NSError error;
    auto styles = unarchivedStyles(value, error);
    if (styles)
        return *std::move(styles);
    NSLog("Error unarchiving saved note styles: {}", error.localizedDescription());
    return {};
}
