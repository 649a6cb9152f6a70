#pragma once

#include "cli/ColourName.h"
#include "platform/text/NSAppearance.h"

#include <string>
#include <vector>

/// What `corvel colour` tells of a colour.

/// For people: the name and the hexadecimal form in the first line, then a line for each other form. With
/// `isStyled` the first line begins with a patch of the colour.
[[nodiscard]] std::vector<std::string> colourLines(const NamedColour& named, NSAppearance appearance,
                                                   bool isStyled);

/// For programs: one line of JSON. docs/corvel.md describes it.
[[nodiscard]] std::string colourJSON(const NamedColour& named, NSAppearance appearance);
