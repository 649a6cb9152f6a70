#pragma once

#include "platform/media/ContentLimits.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The seam behind which all untrusted content is parsed: plain values in, plain values out. A reader keeps
/// no state between calls, knows no index, and may run in this process or in another.

/// What to read: an open file (or folder, for packages), or bytes when there is no file. Borrowed for the
/// call.
struct ContentSource {
    int fileDescriptor = -1;
    std::string_view bytes;
    /// The type identifier that decides which reader is taken.
    std::string typeIdentifier;
    /// The file's name; only its extension is ever looked at, and it may be empty.
    std::string name;

    [[nodiscard]] bool isFile() const { return fileDescriptor >= 0; }
};

enum class ContentStatus {
    /// The text is what the content holds, or as much of it as the limits allow.
    Read,
    /// No reader knows this type.
    UnknownKind,
    /// The bytes are not what the type says; the text is what could be saved.
    Damaged,
    /// A password is needed.
    Locked,
    /// The file system refused to give the bytes.
    Unreadable,
};

/// One field of the content's own description.
struct ContentField {
    /// "title", "author", "subject", "keywords" or "description".
    std::string name;
    std::string value;
};

/// What a reader found. All texts are valid UTF-8.
struct Content {
    ContentStatus status = ContentStatus::UnknownKind;
    /// For every status but `Read`: what is wrong, without any of the content's own text.
    std::string reason;
    std::string text;
    std::vector<ContentField> fields;
    /// One sentence for every limit that was reached.
    std::vector<std::string> cutNotes;
};

/// Where a reader puts what it finds; it enforces the limits that all formats share.
class ContentSink {
public:
    explicit ContentSink(const ContentLimits& limits);

    /// Appends UTF-8; ill-formed bytes are replaced, NULs become spaces.
    /// @return false when the text or time limit is reached: the reader stops there, its work is done.
    bool append(std::string_view text);
    /// Ends the line unless the text is empty or at a line's start already.
    void breakLine();
    /// Ends the word: adds a space unless the text is empty or ends in white space.
    void breakWord();
    /// Empty values are dropped; a value is cut at 4 KB.
    void addField(std::string_view name, std::string_view value);
    /// Notes that a limit cut the content. The same note twice is one note.
    void noteCut(std::string_view note);

    /// True when the text is full or the time is up. Cheap enough to ask in every loop.
    [[nodiscard]] bool isFull();

    [[nodiscard]] bool isEmpty() const { return m_content.text.empty(); }

    [[nodiscard]] std::size_t byteCount() const { return m_content.text.size(); }

    /// What was appended so far. Valid until more is.
    [[nodiscard]] std::string_view text() const { return m_content.text; }

    [[nodiscard]] const ContentLimits& limits() const { return m_limits; }

    /// How deep the container being read lies within others; readers that open members check it against the
    /// limit.
    [[nodiscard]] std::size_t containerDepth() const { return m_containerDepth; }

    void setContainerDepth(std::size_t depth) { m_containerDepth = depth; }

    /// Gives the finished content away; the sink is empty after it.
    [[nodiscard]] Content takeContent(ContentStatus status, std::string reason = {});

private:
    ContentLimits m_limits;
    std::chrono::steady_clock::time_point m_deadline;
    std::size_t m_containerDepth = 0;
    unsigned m_clockCountdown = 0;
    bool m_full = false;
    Content m_content;
};

/// What a reader returns; the text went to the sink.
struct ReadResult {
    ContentStatus status = ContentStatus::Read;
    std::string reason;
};

/// Reads the content of one type.
using ContentReader = ReadResult (*)(const ContentSource& source, ContentSink& sink);

/// The reader for a type identifier, by its nearest ancestor that has one; null for a type that none knows.
[[nodiscard]] ContentReader contentReaderForType(std::string_view typeIdentifier);

/// Reads `source` with the reader of its type. Never throws for anything the bytes may hold.
[[nodiscard]] Content readContent(const ContentSource& source, const ContentLimits& limits = {});

/// Reads `source` into a sink that is already in use: a member of a container, a part of a message.
[[nodiscard]] ReadResult readContentInto(const ContentSource& source, ContentSink& sink);

/// The bytes of `source`, at most `maximumByteCount` of them. False when the file system refuses.
[[nodiscard]] bool readSourceBytes(const ContentSource& source, std::size_t maximumByteCount,
                                   std::string& bytes);
