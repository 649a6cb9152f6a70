#pragma once

#include "platform/word/WordListWriting.h"
#include "platform/word/WordPageWriting.h"

#include <optional>

/// What a paragraph is beside its style.
struct WordParagraphContext {
    /// Of a list.
    std::optional<WordListWriting::Item> item;
    bool isRightToLeft = false;
    /// What its end looks like, as properties of runs.
    std::string_view endProperties;
};

/// Writes how a paragraph is set: style and header level, list, borders and ground of the innermost block
/// that is no cell, tabs, direction, spacing, indents and alignment. Nothing for a paragraph that is set as
/// its style says. `lineHeight` is that of the document's plain text: line spacing, for which the format has
/// no form, becomes a multiple of it. What else has no form is left out: line breaking, tightening,
/// hyphenation, a maximum line height by itself, a tab interval other than the page's.
void writeWordParagraphProperties(WordXML& xml, const NSParagraphStyle& style, const WordPage& page,
                                  double lineHeight, const WordParagraphContext& context);
