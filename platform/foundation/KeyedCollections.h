#pragma once

#include "platform/foundation/NSCoder.h"

#include <vector>

/// What the collection holds that the coder is at, in either form that archives have: a list under
/// "NS.objects", or one key each, "NS.object.0", "NS.object.1" and so on. Nil stands for what was left out.
[[nodiscard]] std::vector<NSAny> decodeCollectionObjects(NSCoder& coder);

/// The keys of a dictionary in either form, beside its objects. Texts, numbers, dates and data are accepted
/// as keys whatever classes were asked for.
[[nodiscard]] std::vector<NSAny> decodeCollectionKeys(NSCoder& coder);

/// The indexed form.
void encodeIndexedObjects(NSCoder& coder, std::span<const NSAny> objects);

// The classes of collections that NSAny has kinds for.
[[nodiscard]] NSAny decodeArray(NSCoder& coder);
/// A dictionary; an NSObjectKeyedDictionary when a key is no text.
[[nodiscard]] NSAny decodeDictionary(NSCoder& coder);
