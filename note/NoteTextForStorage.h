#pragma once

#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSAttributedString.h"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// The names of the text attributes that packages store. Made once.
[[nodiscard]] const std::set<std::u16string_view>& storedAttributeNames();

/// Removes all other attributes.
void removeAttributesNotStored(NSMutableAttributedString& text);

/// Gives files that are called as one of the package's own members, or as no file can be (with a slash, in
/// more than 255 bytes, with half a character), copies under fresh unique names, with the same extensions
/// where these fit: they would take the place of those members, or have none.
void renameFilesThatNoMemberCanBe(NSMutableAttributedString& text);

/// What is stored beside a note's text instead of in it.
struct StoredAttachments {
    /// The files, under the names that the text refers to them by.
    std::map<std::u16string, NSFileWrapper::Ref> members;
    /// Where dividers stand as text, ascending.
    std::vector<NSRange> dividerRanges;
};

/// Takes files and dividers out of the text: files become placeholders with the names of members, dividers
/// become the asterisks that stand for them. Of two files of one name the second is copied under a fresh
/// unique name with the same extension if it fits, and so is a file in whose place `package`, to which the
/// files are added, holds other contents. Checklist boxes and attachments whose file has no preferred name
/// stay in the text as they are.
[[nodiscard]] StoredAttachments takeAttachments(NSMutableAttributedString& text,
                                                const NSFileWrapper& package);
