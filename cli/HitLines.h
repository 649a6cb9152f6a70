#pragma once

#include "platform/search/SKIndex.h"

#include <string>

/// How a hit is shown to people: its path, for an attachment the attachment's name and below it the item that
/// it is in, and below these the snippet as one line. Matches stand between `kMatchStart` and `kMatchEnd` in
/// the snippet that is given, and in bold or in brackets in what comes out.
enum class MatchStyle { Brackets, Bold };

inline constexpr char kMatchStart = '\x02';
inline constexpr char kMatchEnd = '\x03';

[[nodiscard]] std::string hitText(const SKSearchHit& hit, MatchStyle style);
