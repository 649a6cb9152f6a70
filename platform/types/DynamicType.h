#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Dynamic identifiers: "dyn." and the hexadecimal digits of a MIME type's bytes. Everything that is to know
/// about such a type is in its identifier, so that no table of them has to be kept.

/// The MIME type without its parameters, in lower case; none when it is not well formed.
[[nodiscard]] std::optional<std::string> normalisedMIMEType(std::string_view mimeType);

/// The dynamic identifier of a normalised MIME type.
[[nodiscard]] std::string dynamicIdentifierForMIMEType(std::string_view normalisedMIMEType);

/// The normalised MIME type that a dynamic identifier stands for; none when it is no such identifier.
[[nodiscard]] std::optional<std::string> mimeTypeForDynamicIdentifier(std::string_view identifier);

/// The declared type that any type with this normalised MIME type conforms to. Unknown kinds of text are
/// plain text, as RFC 2046 (4.1.4) asks.
[[nodiscard]] std::string_view parentForMIMEType(std::string_view normalisedMIMEType);
