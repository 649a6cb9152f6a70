#pragma once

#include "note/CVLNoteFile.h"
#include "platform/foundation/NSURL.h"

#include <cstddef>
#include <string>

/// What became of the attachments of a note whose files its package does not have. The note itself keeps an
/// empty file in the place of each, which must not pass for the file.

/// Takes the attachments out of a note that was read from the URL, those whose member is a link included.
/// How many these were.
std::size_t takeMissingFilesOut(CVLNoteFile& note, const NSURL& url);

/// Takes attachments whose member is a link out of the note: what it leads to is none of the note's.
void takeLinksOut(CVLNoteFile& note);

/// Says on standard error what the note that a command was given has lost, and where there may be copies.
void tellLosses(const std::string& path);
