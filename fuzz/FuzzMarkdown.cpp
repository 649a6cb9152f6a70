// Any text is taken apart within its borders, images go as the patterns for them say, and what is built as a
// link reads as one.

#include "fuzz/UTF16Input.h"
#include "platform/foundation/NSRegularExpression.h"
#include "strings/MarkdownChecklists.h"
#include "strings/MarkdownLines.h"
#include "strings/MarkdownLinks.h"

#include <cstdlib>

using namespace CVLMarkdown;

namespace {

// The patterns take quadratic time; the comparison with them is for short texts.
constexpr std::size_t kLongestCompared = 2000;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void checkList(const std::u16string& text)
{
    std::u16string bullet;
    NSInteger number = 0;
    switch (getListTypeAndCurrentBullet(text, &bullet, &number)) {
    case ListType::None:
        require(bullet.empty());
        break;
    case ListType::Unordered:
        require(bullet.size() <= text.size() && text.starts_with(bullet) && bullet.ends_with(u' '));
        break;
    case ListType::Ordered:
        require(number >= 0 && bullet.ends_with(u". "));
        require(text.starts_with(bullet) || bullet == text + u". ");
        break;
    }
    require(headingLevel(text) <= text.size());
}

void checkLinks(const std::u16string& text)
{
    std::u16string link;
    std::u16string linkText;
    std::u16string title;
    if (getLink(text, &link, &linkText, &title) || getImageLink(text, &link, &linkText, &title)) {
        for (const auto& piece : {link, linkText, title})
            require(text.find(piece) != std::u16string::npos);
    }
    require(getLink(markdownLinkWithText(linkText, u"x"), &link));
    require(link == u"x");
}

void checkImages(const std::u16string& text)
{
    static const auto inlined = NSRegularExpression::regularExpressionWithPattern(u"\\!\\[.*\\]\\(.*\\)");
    static const auto referred = NSRegularExpression::regularExpressionWithPattern(u"\\!\\[.*\\]\\[.*\\]");
    const auto without = markdownByRemovingImages(text);
    if (text.size() > kLongestCompared)
        return;
    require(without
            == referred->stringByReplacingMatchesInString(
                inlined->stringByReplacingMatchesInString(text, u""), u""));
}

void checkChecklists(const std::u16string& text)
{
    for (const auto& item : completedChecklistItems(text))
        require(!item.empty() && text.find(item) != std::u16string::npos);
    for (const auto& item : outstandingChecklistItems(text))
        require(!item.empty() && text.find(item) != std::u16string::npos);
    NSUInteger level = 0;
    if (TSExtensions::getMarkdownChecklistValue(text, nullptr, &level))
        require(level < text.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto text = UTF16Input(data, size);
    checkList(text);
    checkLinks(text);
    checkImages(text);
    checkChecklists(text);
    (void)isEmphasized(text); // Any answer will do.
    return 0;
}
