#pragma once

#include "platform/search/SKIndex.h"
#include "service/CVLIndexingProtocol.h"
#include "service/ItemSources.h"

/// Adds the attachments of an e-mail message as children of its document, by the text that `attachmentsInfo`
/// or the classifier has for them, else by their own content. Children that the message no longer has stay.
/// Failures are logged and the work goes on; after a minute the attachments that are left are counted as
/// failed.
///
/// An attachment without text is written to a fresh folder in the temporary folder while it is read, under
/// the last component of its name. The file is deleted, the folder is left.
/// @throws SKIndexException when the index cannot go on.
void indexMailAttachments(const AttachmentsInfo& attachmentsInfo, const NSURL& messageURL,
                          const SKDocumentRef& parentDocument, SKIndex& index, const ImageTerms& imageTerms);
