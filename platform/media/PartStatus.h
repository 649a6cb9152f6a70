#pragma once

/// What reading one part of a document came to.
enum class PartStatus {
    /// All of it was read.
    Read,
    /// A limit ended the reading; the sink holds the note.
    Cut,
    /// The document has no such part.
    Absent,
    /// The part is encrypted.
    Locked,
    /// The part's bytes are not what they should be; what stands before the damage was read.
    Damaged,
};
