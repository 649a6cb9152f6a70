#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the header fields of messages mean. Every function takes a field's value as it stands in the message,
/// folded lines, encoded words, raw bytes of any encoding and all, and looks at its first 64 KB. Nothing is
/// refused: what has no meaning gives the text as it is or the field's default. All results are valid UTF-8.

struct MIMEContentType {
    /// In lower case, without parameters.
    std::string mimeType;
    std::string boundary;
    std::string charset;
    /// A file name that older programs put here.
    std::string name;
    /// Lines that end in a space go on in the next one (RFC 3676)...
    bool isFlowed = false;
    /// ...and the space is no part of the text.
    bool deletesSpace = false;

    [[nodiscard]] bool isMultipart() const { return mimeType.starts_with("multipart/"); }
};

struct MIMEDisposition {
    bool isAttachment = false;
    std::string filename;
};

struct MIMEMailbox {
    std::string displayName;
    std::string address;
};

/// A text for readers, like a subject.
[[nodiscard]] std::string decodedFieldText(std::string_view value);

/// The mailboxes of an address list. Groups stand for their members.
[[nodiscard]] std::vector<MIMEMailbox> mailboxesInField(std::string_view value);

/// None for a value that names no type.
[[nodiscard]] std::optional<MIMEContentType> contentTypeInField(std::string_view value);

[[nodiscard]] MIMEDisposition dispositionInField(std::string_view value);

/// `bytes` with a Content-Transfer-Encoding taken off, at most `maximumByteCount` of them. An unknown
/// encoding is none.
[[nodiscard]] std::string decodedTransferBytes(std::string_view bytes, std::string_view encoding,
                                               std::size_t maximumByteCount);

/// Whether decodedTransferBytes gives anything but the bytes themselves.
[[nodiscard]] bool isEncodedForTransfer(std::string_view encoding);
