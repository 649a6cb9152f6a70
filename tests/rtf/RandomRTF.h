#pragma once

#include <random>
#include <string>

/// Documents that are made to hurt.

/// A document of so many pieces, each a word, a group's start or end, bytes or text, in any order.
[[nodiscard]] std::string randomRTF(std::mt19937& random, std::size_t pieceCount);

/// The document with a few bytes behind its beginning changed, left out or repeated; maybe cut off.
[[nodiscard]] std::string damagedRTF(std::string document, std::mt19937& random);
