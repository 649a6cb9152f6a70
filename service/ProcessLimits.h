#pragma once

/// Sets the process up for many threads that each work on one item at a time: descriptors for all
/// connections, stacks deep enough for the format libraries, an allocator that gives the memory of a big item
/// back, private files, and no signals for writes that fail. What the system refuses is logged and left as it
/// is. To be called before the first thread is made.
void adjustProcessLimits();
