#pragma once

#include <string>
#include <string_view>

struct MIMEContentType;

/// The charset in which a part is best read: the declared one, or none when the bytes speak against it. Mails
/// declare wrong charsets often: "us-ascii" for whatever it was, and single-byte ones for UTF-8.
/// @return the empty text when the bytes have to tell.
[[nodiscard]] std::string charsetForPart(std::string_view bytes, std::string_view declaredCharset);

/// The text of a plain part as UTF-8, with bare line breaks and its flowed lines joined.
[[nodiscard]] std::string textOfPlainPart(std::string_view bytes, const MIMEContentType& type);
