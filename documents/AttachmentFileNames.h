#pragma once

#include "platform/text/NSAttributedString.h"

/// Gives every file of a text a name of its own: of two different files of one name, the later becomes
/// "photo 2.png". Who looks a file up by its name, as the writer of messages does, then finds the right one.
void makeFileNamesUnique(const NSAttributedString& text);
