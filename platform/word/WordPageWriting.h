#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSGeometry.h"
#include "platform/word/WordAttributeSets.h"
#include "platform/word/WordXML.h"

/// The page of a document, in points.
struct WordPage {
    NSSize paper;
    NSEdgeInsets margins;
    /// Where tabs stop that no paragraph sets.
    double tabInterval = 0;

    /// Between the margins; an inch at least.
    [[nodiscard]] double textWidth() const;
};

/// The page that the document attributes ask for; without them US Letter with margins of an inch. Tabs stop
/// where the text's first style with an interval has it, else where the platform's do, every 28 points.
[[nodiscard]] WordPage wordPageOf(const NSAny::Dictionary& documentAttributes,
                                  const std::vector<WordAttributeSet>& sets);

/// Writes the properties of the one section of a document.
void writeWordSection(WordXML& xml, const WordPage& page);

/// The part of the settings.
[[nodiscard]] std::string wordSettingsPart(const WordPage& page);
