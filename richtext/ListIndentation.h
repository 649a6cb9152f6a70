#pragma once

#include "platform/text/NSParagraphStyle.h"

/// Moves a paragraph, its first line too, to the first tab stop behind its head indent. Where there is none,
/// or it lies at 0, by the default tab interval; where that leads nowhere behind 0, to the first stop of the
/// default paragraph style.
void indentToNextTabStop(NSMutableParagraphStyle& style);
