#pragma once

#include "platform/media/ContentReader.h"

/// What an e-mail message is searched by: sender, recipients, subject and body, a line each, and behind them
/// the text of its attachments. Any bytes are a message; the first ContentLimits::wholeFileBytes are read.
[[nodiscard]] ReadResult readEmail(const ContentSource& source, ContentSink& sink);
