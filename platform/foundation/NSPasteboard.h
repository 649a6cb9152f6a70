#pragma once

#include "platform/foundation/NSAny.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Plain text.
inline constexpr std::u16string_view NSPasteboardTypeString = u"public.utf8-plain-text";

/// What can be copied: an object that gives itself in forms of several types, the best first.
class NSPasteboardWriting {
public:
    virtual ~NSPasteboardWriting() = default;

    /// Type identifiers.
    [[nodiscard]] virtual std::vector<std::u16string> writableTypesForPasteboard() const = 0;
    /// A text, bytes, or another property list value; nil for a type that the object has no form of.
    [[nodiscard]] virtual NSAny pasteboardPropertyListForType(std::u16string_view type) const = 0;

protected:
    NSPasteboardWriting() = default;
    NSPasteboardWriting(const NSPasteboardWriting&) = default;
    NSPasteboardWriting& operator=(const NSPasteboardWriting&) = default;
};

/// A class whose objects can be pasted.
struct NSPasteboardReading {
    /// The types that it reads, the best first.
    std::vector<std::u16string> readableTypes;
    /// The object of a form; nil when it makes none. Never null.
    NSAny (*initWithPasteboardPropertyList)(const NSAny& propertyList, std::u16string_view ofType) = nullptr;
};

/// One thing on a pasteboard, in all the forms that it was given in.
class NSPasteboardItem {
public:
    /// In the order in which they were set.
    [[nodiscard]] std::vector<std::u16string> types() const;
    /// Nil when the item has no form of the type.
    [[nodiscard]] NSAny propertyListForType(std::u16string_view type) const;
    /// The bytes of a form of bytes or of text (as UTF-8); none for any other.
    [[nodiscard]] std::optional<NSData> dataForType(std::u16string_view type) const;
    /// The text of a form of text or of bytes (as UTF-8); none for any other.
    [[nodiscard]] std::optional<std::u16string> stringForType(std::u16string_view type) const;

    /// Replaces the form of that type.
    void setPropertyList(NSAny propertyList, std::u16string_view type);

private:
    std::vector<std::pair<std::u16string, NSAny>> m_forms;
};

/// Items on their way from a copy to a paste, within the program: hosts bring them to the desktop's clipboard
/// and from it.
class NSPasteboard {
public:
    void clearContents() { m_items.clear(); }

    /// Puts an item on the board for each object, with all its forms; forms that are nil are left out, and so
    /// are objects without any. No object is null. False when nothing was put there.
    bool writeObjects(std::span<const std::shared_ptr<const NSPasteboardWriting>> objects);

    [[nodiscard]] const std::vector<NSPasteboardItem>& pasteboardItems() const { return m_items; }

    void addPasteboardItem(NSPasteboardItem item) { m_items.push_back(std::move(item)); }

    /// The object that each item makes by its first readable type that makes one, by the first class that has
    /// one. Items that make none are left out.
    [[nodiscard]] std::vector<NSAny>
    readObjectsForClasses(std::span<const NSPasteboardReading> classes) const;

private:
    std::vector<NSPasteboardItem> m_items;
};
