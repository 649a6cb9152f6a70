#include "platform/html/HTMLListReading.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/HTMLAttributeStyle.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::size_t kMostMarkerBytes = 64;

/// Circles are never the usual format: in notes they are boxes to tick.
std::u16string usualFormat(bool isOrdered, std::size_t depth)
{
    if (isOrdered)
        return std::u16string(NSTextListMarkerDecimal) + u".";
    constexpr std::array<std::u16string_view, 3> kFormats{NSTextListMarkerDisc, NSTextListMarkerHyphen,
                                                          NSTextListMarkerSquare};
    return std::u16string(kFormats.at(std::min<std::size_t>(depth, kFormats.size() - 1)));
}

void beginItemOfList(HTMLOpenElement& item, const NSTextList::Ref& list, HTMLTextBuilder& builder)
{
    item.awaitsMarker = false;
    // Lists within the item are in the list that it turns out to be of.
    item.context.lists.back() = list;
    const auto& context = item.context;
    const auto marker = list->markerForItemNumber(item.number);
    if (marker.empty())
        builder.appendEmptyParagraph(item.style, context);
    else
        builder.appendVerbatim(u"\t" + marker + u"\t", builder.attributesFor(item.style, {}), item.style,
                               context);
}

} // namespace

void openList(HTMLOpenElement& element, const HTMLTag& tag)
{
    const auto list = std::make_shared<HTMLOpenList>();
    list->isOrdered = tag.name == "ol";
    list->nextNumber = integerOf(tag.attribute("start"), 1);
    const auto depth = element.context.lists.size();
    auto format = element.style.listFormat.value_or(usualFormat(list->isOrdered, depth));
    if (const auto marker = tag.attribute("data-marker"); !marker.empty())
        format = UTF16FromUTF8(marker.substr(0, kMostMarkerBytes));
    element.style.listFormat.reset();
    list->list = std::make_shared<NSTextList>(format, 0, list->nextNumber);
    element.list = list;
    element.item = HTMLOpenElement::kNone;
    element.context.lists.push_back(list->list);
}

void openItem(HTMLOpenElement& element, const HTMLTag& tag, const std::shared_ptr<HTMLOpenList>& list,
              std::size_t place)
{
    if (!tag.attribute("value").empty())
        list->nextNumber = integerOf(tag.attribute("value"), list->nextNumber);
    element.list = list;
    element.number = list->nextNumber++;
    element.awaitsMarker = true;
    element.item = place;
}

void beginItem(HTMLOpenElement& item, HTMLTextBuilder& builder)
{
    const auto list = item.context.lists.empty() ? nullptr : item.context.lists.back();
    if (list && item.awaitsMarker)
        beginItemOfList(item, list, builder);
}

bool beginCheckItem(HTMLOpenElement& item, bool isChecked, HTMLTextBuilder& builder)
{
    const auto list = item.list;
    if (!list || list->isOrdered)
        return false;
    auto& made = isChecked ? list->checked : list->open;
    if (!made)
        made = std::make_shared<NSTextList>(isChecked ? NSTextListMarkerCheck : NSTextListMarkerCircle);
    if (item.awaitsMarker)
        beginItemOfList(item, made, builder);
    return true;
}

std::optional<bool> boxAtStart(std::u16string_view text)
{
    const auto box = text.substr(0, 2);
    if (box == u"\u2610 ")
        return false;
    const bool isChecked = box == u"\u2611 " || box == u"\u2612 " || box == u"\u2713 " || box == u"\u2714 ";
    return isChecked ? std::optional(true) : std::nullopt;
}
