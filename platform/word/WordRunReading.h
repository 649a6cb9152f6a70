#pragma once

#include "platform/media/XMLTextStream.h"
#include "platform/word/WordProperties.h"
#include "platform/word/WordTheme.h"

#include <string_view>

/// Takes what one element within a run's properties says; elements that say nothing of looks are ignored.
void readRunProperty(WordRunProperties& properties, std::string_view element, const XMLAttributes& attributes,
                     const WordTheme& theme);
