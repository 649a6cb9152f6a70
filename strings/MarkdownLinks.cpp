#include "strings/MarkdownLinks.h"

#include "platform/foundation/NSCharacterSet.h"
#include "platform/foundation/NSString.h"

namespace {

constexpr auto kNone = std::u16string_view::npos;
constexpr std::u16string_view kLinkStart = u"[";
constexpr std::u16string_view kImageStart = u"![";

struct Link {
    std::u16string_view link;
    std::u16string_view text;
    std::u16string_view title;
};

std::u16string_view withoutBlanks(std::u16string_view text)
{
    const auto kept = rangeTrimmedOfCharactersInSet(text, NSCharacterSet::whitespaceCharacterSet());
    return text.substr(kept.location, kept.length);
}

std::u16string_view withoutQuotes(std::u16string_view text)
{
    const auto start = text.find_first_not_of(u'"');
    return start == kNone ? std::u16string_view()
                          : text.substr(start, text.find_last_not_of(u'"') - start + 1);
}

std::optional<Link> parsedLink(std::u16string_view line, std::u16string_view start)
{
    if (!hasPrefix(withoutBlanks(line), start))
        return std::nullopt;
    const auto textStart = line.find(u'[');
    const auto textEnd = line.rfind(u']');
    const auto linkStart = line.rfind(u'(');
    const auto linkEnd = line.rfind(u')');
    if (textStart == kNone || textEnd == kNone || linkStart == kNone || linkEnd == kNone
        || linkStart < textEnd || linkEnd < linkStart)
        return std::nullopt;
    Link found;
    found.text = line.substr(textStart + 1, textEnd - textStart - 1);
    found.link = withoutBlanks(line.substr(linkStart + 1, linkEnd - linkStart - 1));
    const auto space = found.link.find(u' ');
    const auto quote = found.link.find(u'"');
    if (space != kNone && quote != kNone) {
        found.title = withoutQuotes(found.link.substr(quote));
        found.link = found.link.substr(0, space);
    }
    return found;
}

void store(std::u16string* slot, std::u16string_view value)
{
    if (slot)
        *slot = value;
}

bool getLinkStartingWith(std::u16string_view line, std::u16string_view start, std::u16string* link,
                         std::u16string* text, std::u16string* title)
{
    const auto found = parsedLink(line, start);
    if (!found)
        return false;
    store(link, found->link);
    store(text, found->text);
    store(title, found->title);
    return true;
}

std::u16string linkWith(std::u16string_view start, std::u16string_view text, std::u16string_view link,
                        std::u16string_view title)
{
    std::u16string result(start);
    result.append(text).append(u"](").append(link);
    if (!title.empty())
        result.append(u" \"").append(title).append(u"\"");
    return result.append(u")");
}

/// What a greedy "!\[.*MIDDLE.*CLOSING" matches in a line, found without trying: from the first "![" to the
/// last closing mark, with the middle anywhere between. There is one match at most.
NSRange imagesInLine(std::u16string_view line, std::u16string_view middle, char16_t closing)
{
    const auto start = line.find(kImageStart);
    const auto end = line.rfind(closing);
    if (start == kNone || end == kNone)
        return {};
    const auto place = line.find(middle, start + kImageStart.size());
    if (place == kNone || place + middle.size() > end)
        return {};
    return {start, end + 1 - start};
}

std::u16string withoutImages(std::u16string_view text, std::u16string_view middle, char16_t closing)
{
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t start = 0; start < text.size();) {
        const auto line = getLineStart(text, {start, 0});
        const auto contents = text.substr(start, line.contentsEnd - start);
        const auto images = imagesInLine(contents, middle, closing);
        result += contents.substr(0, images.location);
        result += contents.substr(NSMaxRange(images));
        result += text.substr(line.contentsEnd, line.end - line.contentsEnd);
        start = line.end;
    }
    return result;
}

} // namespace

namespace CVLMarkdown {

bool getLink(std::u16string_view line, std::u16string* link, std::u16string* text, std::u16string* title)
{
    return getLinkStartingWith(line, kLinkStart, link, text, title);
}

bool getImageLink(std::u16string_view line, std::u16string* link, std::u16string* altText,
                  std::u16string* title)
{
    return getLinkStartingWith(line, kImageStart, link, altText, title);
}

std::u16string markdownLinkWithText(std::optional<std::u16string_view> text, std::u16string_view link,
                                    std::u16string_view title)
{
    return linkWith(kLinkStart, text.value_or(link), link, title);
}

std::u16string markdownImageLinkWithAltText(std::u16string_view altText, std::u16string_view imageLink,
                                            std::u16string_view title)
{
    return linkWith(kImageStart, altText, imageLink, title);
}

std::u16string markdownByRemovingImages(std::u16string_view text)
{
    return withoutImages(withoutImages(text, u"](", u')'), u"][", u']');
}

} // namespace CVLMarkdown
