#pragma once

#include <chrono>
#include <cstddef>

/// The bounds within which content is read. Reaching one keeps what was read so far and is noted. They keep
/// the memory for one item below 300 MB and the time for it below a minute, whatever its bytes are.
struct ContentLimits {
    /// Bytes taken from a file that is read as a stream (plain text, logs).
    std::size_t streamedBytes = std::size_t{256} << 20;
    /// Bytes taken from a file that has to be in memory as a whole (mail, RTF, HTML with an odd encoding).
    std::size_t wholeFileBytes = std::size_t{64} << 20;
    /// Bytes of the member of a note package that has its text (note/NotePlainText.h). Reading an archive of
    /// nothing but runs of one unit takes twenty-seven times its size in memory.
    std::size_t noteMemberBytes = std::size_t{10} << 20;
    /// UTF-8 bytes of text that one item gives. Indexing a text of nothing but different words takes twenty
    /// times its size in memory.
    std::size_t textBytes = std::size_t{10} << 20;
    /// Bytes that all members of a container give when expanded.
    std::size_t expandedBytes = std::size_t{256} << 20;
    /// Members of a container that are looked at.
    std::size_t entries = 10'000;
    /// Depth of parts within parts, elements within elements, groups within groups.
    std::size_t nesting = 200;
    /// Messages within messages, containers within containers.
    std::size_t containerNesting = 8;
    std::size_t pages = 20'000;
    /// Bytes of an image that is shown, and its pixels, which take four bytes each when they are decoded.
    std::size_t imageBytes = std::size_t{64} << 20;
    std::size_t imagePixels = 50'000'000;
    /// Bytes of an image of lines and text: its decoder takes far more time for a byte than others do.
    std::size_t vectorImageBytes = std::size_t{1} << 20;
    std::chrono::milliseconds time = std::chrono::seconds(30);
};
