#pragma once

#include "cli/NoteInformation.h"
#include "note/NoteCheck.h"

#include <string>
#include <vector>

/// What `corvel note` tells of notes. The machine-readable forms are one line of JSON, described in
/// docs/corvel.md.

/// For people: a line for each thing that the note has, and one for each of its files.
[[nodiscard]] std::vector<std::string> noteInformationLines(const NoteInformation& information);

[[nodiscard]] std::string noteInformationJSON(const NoteInformation& information, const std::string& path);

/// A sentence on a note that can be recovered, in the user's language; empty for others.
[[nodiscard]] std::u16string descriptionOfReadability(NoteReadability readability);

[[nodiscard]] std::string noteCheckJSON(const NoteCheck& check, const std::string& path);
