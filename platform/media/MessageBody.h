#pragma once

#include <string>
#include <string_view>

struct MIMEEntity;

/// The text of a message or part that its reader sees, at most ContentLimits::textBytes of it.
[[nodiscard]] std::string renderedBody(const MIMEEntity& entity);

/// Whether a part without parts of its own is shown as text: it is some kind of text, and no file to be
/// saved.
[[nodiscard]] bool isBodyText(const MIMEEntity& entity);

/// Trimmed, with every run of white space made one blank, or one line break when it holds one.
[[nodiscard]] std::string strippedText(std::string_view text);
