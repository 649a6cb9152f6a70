#include "strings/FileNames.h"

#include "platform/foundation/NSCharacterSet.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSString.h"
#include "platform/foundation/NSStringComparison.h"
#include "platform/foundation/NSStringPaths.h"
#include "platform/foundation/Unicode.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr std::size_t kMaxNameLength = 255;
constexpr NSStringCompareOptions kNameComparison
    = NSCaseInsensitiveSearch | NSDiacriticInsensitiveSearch | NSWidthInsensitiveSearch;

std::u16string trimmed(std::u16string_view name)
{
    static const auto set = [] {
        auto blanks = NSCharacterSet::whitespaceAndNewlineCharacterSet();
        blanks.formUnionWithCharacterSet(NSCharacterSet::characterSetWithCharactersInString(u"\u2026"));
        return blanks;
    }();
    return stringByTrimmingCharactersInSet(name, set);
}

void replaceLeadingDots(std::u16string& name)
{
    const auto end = std::min(name.find_first_not_of(u'.'), name.size());
    std::fill_n(name.begin(), end, u'-');
}

bool isUnsafe(char16_t unit)
{
    return unit == u'/' || unit == u':' || unit == u'~' || unit == u'\t';
}

bool isNewline(char16_t unit)
{
    return NSCharacterSet::newlineCharacterSet().characterIsMember(unit);
}

std::u16string shortened(std::u16string_view name)
{
    const auto extension = pathExtension(name);
    if (extension.empty())
        return trimmed(name.substr(0, kMaxNameLength));
    const auto base = stringByDeletingPathExtension(name);
    if (extension.size() + 1 >= kMaxNameLength)
        return trimmed(base.substr(0, kMaxNameLength));
    return trimmed(base.substr(0, kMaxNameLength - 1 - extension.size()) + u"." + extension);
}

bool isTaken(const NSURL& folder, std::u16string_view name)
{
    return folder.URLByAppendingPathComponent(UTF8FromUTF16(name))
        .checkPromisedItemIsReachableAndReturnError();
}

} // namespace

std::u16string TSExtensions::stringSanitizedForFileName(std::u16string_view text)
{
    auto name = trimmed(text);
    replaceLeadingDots(name);
    std::replace_if(name.begin(), name.end(), isUnsafe, u'-');
    // Blanks that this lays bare at an end stay: names that have been given out before must come out the
    // same.
    std::erase_if(name, isNewline);
    return name.size() > kMaxNameLength ? shortened(name) : name;
}

std::u16string TSExtensions::makeFilenameUniqueInDirectoryAtURL(std::u16string_view name, const NSURL& folder)
{
    if (!isTaken(folder, name))
        return std::u16string(name);
    const auto base = stringByDeletingPathExtension(name);
    const auto extension = pathExtension(name);
    const auto ending = extension.empty() ? extension : u"." + extension;
    for (std::uintmax_t number = 1;; ++number) {
        const auto candidate = base + u" " + UTF16FromUTF8(std::to_string(number)) + ending;
        if (!isTaken(folder, candidate))
            return stringSanitizedForFileName(lastPathComponent(candidate));
    }
}

std::u16string TSExtensions::stringByTruncatingMiddleWithMaxLength(std::u16string_view text,
                                                                   std::size_t maxLength)
{
    if (text.size() <= maxLength)
        return std::u16string(text);
    const auto half = maxLength / 2;
    std::u16string result(text.substr(0, half));
    result += u'\u2026';
    result += text.substr(text.size() - half);
    return result;
}

bool TSExtensions::isEqualToFilename(std::u16string_view name, std::u16string_view other)
{
    return compare(name, other, kNameComparison) == NSComparisonResult::NSOrderedSame;
}

bool TSExtensions::isCaseInsensitiveEqualToString(std::u16string_view text, std::u16string_view other)
{
    return isEqualToFilename(text, other);
}

std::u16string TSExtensions::fileSystemRepresentationString(std::u16string_view text)
{
    const auto bytes = NSFileManager::fileSystemRepresentation(text);
    return NSFileManager::stringWithFileSystemRepresentation(bytes.data(), bytes.size());
}

std::u16string TSExtensions::fileDisplayName(std::u16string_view path)
{
    return NSFileManager::displayNameAtPath(path);
}
