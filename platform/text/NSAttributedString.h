#pragma once

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"

#include <optional>
#include <string>

/// Text with attributes, as a value. For now it carries the characters only, and carries them as UTF-8: what
/// is made here goes to the index, which takes nothing else.
class NSAttributedString {
public:
    explicit NSAttributedString(std::string string);

    /// The text of the Word document at `url`, whatever the file's name says. A document that is damaged in
    /// parts beside its body still reads. None when the file cannot be read (`error` is of
    /// NSPOSIXErrorDomain), or is damaged or encrypted or holds no Word document (`error` is
    /// FileReadCorruptFile of NSCocoaErrorDomain).
    [[nodiscard]] static std::optional<NSAttributedString> initWithURL(const NSURL& url,
                                                                       NSError* error = nullptr);

    [[nodiscard]] const std::string& string() const { return m_string; }

private:
    std::string m_string;
};
