#pragma once

#include "platform/media/XMLTextStream.h"
#include "platform/word/WordProperties.h"

#include <string_view>

/// Takes what one element within a paragraph's properties says; elements that say nothing of how the
/// paragraph is set are ignored.
void readParagraphProperty(WordParagraphProperties& properties, std::string_view element,
                           const XMLAttributes& attributes);
