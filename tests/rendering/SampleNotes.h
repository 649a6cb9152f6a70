#pragma once

#include "note/CVLNoteFile.h"

#include <memory>
#include <string_view>

/// Notes with everything that a note may hold, made by the program itself: for tests that draw them, and for
/// the pictures in the documentation.

/// A shopping list: levels, ticked items, dividers, highlights in all five colours.
[[nodiscard]] std::unique_ptr<CVLNoteFile> groceriesNote();
/// A plan of a journey: headings, a picture, a table, lists within lists, links, code, a quote, a file.
[[nodiscard]] std::unique_ptr<CVLNoteFile> journeyNote();
/// A page of files and pictures, on a background of its own.
[[nodiscard]] std::unique_ptr<CVLNoteFile> picturesNote();
/// Enough paragraphs for several pages.
[[nodiscard]] std::unique_ptr<CVLNoteFile> longNote();

/// The bytes of a picture of hills under a sun, so many pixels wide and high.
[[nodiscard]] std::string landscapePNG(double width, double height);
