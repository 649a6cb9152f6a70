#pragma once

#include "platform/search/SKIndex.h"
#include "service/CVLIndexingProtocol.h"
#include "service/ItemSources.h"

/// Brings the children of a package's document in line with `attachmentsInfo`: children that it does not name
/// are removed, each file that it names is added. A file that cannot be added is logged and the work goes on.
/// Only regular files directly within the package are read: a name with a slash in it, "..", or a link leads
/// nowhere else.
/// @throws SKIndexException when the index cannot go on.
void indexAttachments(const AttachmentsInfo& attachmentsInfo, const SKDocumentRef& parentDocument,
                      SKIndex& index, const ImageTerms& imageTerms);
