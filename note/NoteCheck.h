#pragma once

#include "note/NoteFinding.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/NSURL.h"

#include <cstddef>
#include <vector>

/// How a note opens.
enum class NoteReadability {
    Readable,
    /// Its text is damaged or missing, and is taken from the package's RTFD part, with its files.
    Recoverable,
    Unreadable,
};

/// What is wrong with a note's package.
struct NoteCheck {
    /// More than these are not listed.
    static constexpr std::size_t kMostFindings = 1000;

    NoteReadability readability = NoteReadability::Readable;
    std::vector<NoteFinding> findings;
    /// Why its own text cannot be read; nothing while it can.
    NSError error{};
};

/// Looks for damage in the package at the URL without changing anything: members that are missing, damaged,
/// too large for the index (`mostIndexedBytes`) or referred to by nothing, attachments without their files,
/// links, dividers in impossible places, and a text for other programs that is not the note's. The latter two
/// are compared without white space and attachments, as writers differ in these. Hidden members, which file
/// managers leave everywhere, are not looked at.
///
/// Whether recovery works is found out by trying. What no package can be read from is Unreadable; of a
/// folder, findings say why.
[[nodiscard]] NoteCheck checkNote(const NSURL& url, std::size_t mostIndexedBytes);

/// The same of a package in memory.
[[nodiscard]] NoteCheck checkNotePackage(const NSFileWrapper& package, std::size_t mostIndexedBytes);
