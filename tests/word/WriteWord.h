#pragma once

#include "platform/media/ZipContainer.h"
#include "tests/word/ReadWord.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Attributes by their names, with their values.
inline NSAttributes attributesOf(std::vector<std::pair<std::u16string_view, NSAny>> values)
{
    NSAttributes attributes;
    for (auto& [name, value] : values)
        attributes.insert_or_assign(std::u16string(name), std::move(value));
    return attributes;
}

inline NSAttributedString styled(std::u16string text, const NSMutableParagraphStyle& style)
{
    return NSAttributedString(std::move(text),
                              attributesOf({{NSParagraphStyleAttributeName, NSAny(style.copy())}}));
}

/// The bytes of the document; empty, and a failure, when it cannot be written.
inline std::string wordBytes(const NSAttributedString& text, const NSAny::Dictionary& documentAttributes = {})
{
    NSError error;
    const auto data = NSAttributedStringDocumentFormats::WordDocumentFromRange(text, {0, text.length()},
                                                                               documentAttributes, &error);
    EXPECT_TRUE(data) << error.localizedDescription();
    return data ? data->bytes : std::string();
}

/// The member of a package; empty when there is none.
inline std::string memberOf(const std::string& package, std::string_view name)
{
    ContentSource source;
    source.bytes = package;
    ContentSink sink(ContentLimits{});
    ReadResult failure;
    auto container = ZipContainer::open(source, sink, failure);
    std::string bytes;
    if (container)
        (void)container->readMember(name, [&bytes](std::string_view piece) {
            bytes += piece;
            return true;
        });
    return bytes;
}

/// What the body of the written document holds.
inline std::string bodyOf(const NSAttributedString& text, const NSAny::Dictionary& documentAttributes = {})
{
    const auto part = memberOf(wordBytes(text, documentAttributes), "word/document.xml");
    const auto start = part.find("<w:body>");
    const auto end = part.find("<w:sectPr>");
    EXPECT_NE(start, std::string::npos);
    EXPECT_NE(end, std::string::npos);
    return end == std::string::npos ? std::string() : part.substr(start + 8, end - start - 8);
}

/// The text as it is read of what was written.
inline NSAttributedString readAgain(const NSAttributedString& text,
                                    const NSAny::Dictionary& documentAttributes = {},
                                    NSAny::Dictionary* readAttributes = nullptr)
{
    NSError error;
    auto again = NSAttributedStringDocumentFormats::initWithWordDocument(
        NSData{wordBytes(text, documentAttributes)}, readAttributes, &error);
    EXPECT_TRUE(again) << error.localizedDescription();
    return again.value_or(NSAttributedString());
}

/// A picture of so many pixels in PNG, as far as its header says.
inline std::string pngHeader(char width, char height)
{
    using namespace std::string_literals;
    return "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0"s + width + "\0\0\0"s + height + "\x08\x06\0\0\0"s;
}
