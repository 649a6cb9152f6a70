#pragma once

#include "platform/text/NSDocumentAttributes.h"

#include <array>
#include <string_view>

/// A word of the description of a document, with its attribute. Words that came later are marked to be passed
/// over.
struct RTFInformationWord {
    std::string_view word;
    std::u16string_view attribute;
    bool isOptional = false;
};

inline constexpr std::array kRTFInformationWords{
    RTFInformationWord{"title", NSTitleDocumentAttribute},
    RTFInformationWord{"author", NSAuthorDocumentAttribute},
    RTFInformationWord{"subject", NSSubjectDocumentAttribute},
    RTFInformationWord{"keywords", NSKeywordsDocumentAttribute},
    RTFInformationWord{"doccomm", NSCommentDocumentAttribute},
    RTFInformationWord{"operator", NSEditorDocumentAttribute},
    RTFInformationWord{"company", NSCompanyDocumentAttribute, true},
    RTFInformationWord{"copyright", NSCopyrightDocumentAttribute, true},
    RTFInformationWord{"manager", NSManagerDocumentAttribute, true},
    RTFInformationWord{"category", NSCategoryDocumentAttribute, true},
};

/// A word with a length in twips, with its attribute in points.
struct RTFMarginWord {
    std::string_view word;
    std::u16string_view attribute;
};

inline constexpr std::array kRTFMarginWords{
    RTFMarginWord{"margl", NSLeftMarginDocumentAttribute},
    RTFMarginWord{"margr", NSRightMarginDocumentAttribute},
    RTFMarginWord{"margt", NSTopMarginDocumentAttribute},
    RTFMarginWord{"margb", NSBottomMarginDocumentAttribute},
};

/// Between keywords.
inline constexpr std::u16string_view kKeywordSeparator = u", ";

/// The page of a document that says nothing of it, in twips.
inline constexpr int kUsualPaperWidth = 12'240;
inline constexpr int kUsualPaperHeight = 15'840;
inline constexpr int kUsualSideMargin = 1'800;
