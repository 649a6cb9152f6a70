#pragma once

#include "platform/text/NSParagraphStyle.h"
#include "platform/word/WordProperties.h"

/// How a paragraph of these properties, all of its styles applied, is set. A paragraph of a list stands as
/// lists do on the platform: its marker between two tabs. `tabInterval` is the document's.
[[nodiscard]] NSMutableParagraphStyle wordParagraphStyle(const WordParagraphProperties& properties,
                                                         NSInteger headerLevel,
                                                         const NSParagraphStyle::TextLists& lists,
                                                         double tabInterval);
