#pragma once

#include "platform/foundation/NSError.h"

#include <compare>
#include <optional>
#include <string>
#include <string_view>

/// A URL. File URLs hold any path bytes that the file system allows: what is not plain ASCII, invalid UTF-8
/// included, is percent-encoded in the string and given back byte for byte by `path`.
///
/// Equality compares the strings, as the platform does: "file:///a" and "file:///a/" are two URLs.
class NSURL {
public:
    /// The URL of a path. A relative path is made absolute from the current folder; "." and ".." and doubled
    /// slashes are taken out, links are not followed. A trailing slash is dropped.
    [[nodiscard]] static NSURL fileURLWithPath(std::string_view path);

    /// Parses an absolute or relative URL string. None when it is empty, or holds a control character, a
    /// space, a byte outside ASCII, or a percent sign that is not followed by two hexadecimal digits.
    [[nodiscard]] static std::optional<NSURL> URLWithString(std::string_view string);

    /// The absolute URL that a relative one means beneath `base` (RFC 3986, section 5.2). A string with a
    /// scheme stands for itself, an empty one for the base.
    [[nodiscard]] static std::optional<NSURL> URLWithString(std::string_view string, const NSURL& base);

    [[nodiscard]] const std::string& absoluteString() const { return m_string; }

    /// The scheme in lower case; empty for a relative URL.
    [[nodiscard]] std::string scheme() const;
    /// True for the scheme "file" with no host or "localhost" and a path that starts with a slash.
    [[nodiscard]] bool isFileURL() const;
    /// The decoded path, without a trailing slash (but "/" stays). May hold any bytes, NUL excepted for file
    /// URLs: a path with an encoded NUL gives the empty string.
    [[nodiscard]] std::string path() const;
    /// The decoded last component of the path; "/" for the root, empty when there is no path.
    [[nodiscard]] std::string lastPathComponent() const;
    /// The extension of the last component without its dot; empty when there is none.
    [[nodiscard]] std::string pathExtension() const;
    /// The folder's URL, with a trailing slash as the platform gives it: "file:///a/b" and "file:///a/b/"
    /// give "file:///a/".
    [[nodiscard]] NSURL URLByDeletingLastPathComponent() const;
    /// `component` (any bytes; slashes in it are kept as separators) appended after one slash.
    [[nodiscard]] NSURL URLByAppendingPathComponent(std::string_view component) const;

    /// Whether the file exists and can be looked up, following links; else false with the reason in `error`.
    [[nodiscard]] bool checkResourceIsReachableAndReturnError(NSError* error = nullptr) const;

    /// Whether the place is taken: by a file, whether its contents are here or are still to be fetched, or by
    /// a link, whatever has become of what it points at.
    [[nodiscard]] bool checkPromisedItemIsReachableAndReturnError(NSError* error = nullptr) const;

    friend bool operator==(const NSURL&, const NSURL&) = default;

private:
    explicit NSURL(std::string string);
    [[nodiscard]] std::string_view rawPath() const;

    std::string m_string;
};

/// Percent-encodes what may not stand in a path component as it is: everything but ASCII letters, digits and
/// -._~!$&'()*+,;=:@
[[nodiscard]] std::string percentEncodedPathComponent(std::string_view bytes);

/// The bytes that a percent-encoded text stands for. A percent sign without two hexadecimal digits stands for
/// itself.
[[nodiscard]] std::string percentDecoded(std::string_view text);
