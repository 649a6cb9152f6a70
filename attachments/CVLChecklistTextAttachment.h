#pragma once

#include "cells/CVLChecklistAttachmentCell.h"
#include "cells/ChecklistIndentation.h"
#include "platform/foundation/NSPasteboard.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextAttachment.h"

#include <atomic>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The file type of every checklist attachment, and its type on the pasteboard.
inline constexpr std::u16string_view CVLChecklistType = u"com.tessel.checklist";
/// What stands for a ticked and for an empty box in plain text.
inline constexpr std::u16string_view CVLChecklistOnValueReplacementString = u"\u2713 ";
inline constexpr std::u16string_view CVLChecklistOffValueReplacementString = u"\u25E6 ";
/// The deepest level that conversions give to an item. An attachment keeps any.
inline constexpr NSUInteger CVLChecklistMaxIndentationLevel = 5;

/// The box in front of a checklist item: ticked or not, at a level of indentation. The state lies in the
/// attachment's cell; putting another cell in its place loses it.
///
/// Always owned by shared pointers. The level may be read and set from any thread.
class CVLChecklistTextAttachment final : public NSTextAttachment,
                                         public NSPasteboardWriting,
                                         public ChecklistIndentation,
                                         public std::enable_shared_from_this<CVLChecklistTextAttachment> {
public:
    /// The deepest level that is taken from an archive: exports write an indent for each, and bytes from
    /// outside must not make them endless.
    static constexpr NSUInteger kMaximumArchivedLevel = 100;

    /// Without a file type and a cell; `init` makes one with both.
    CVLChecklistTextAttachment() = default;

    /// An empty box at the top level.
    [[nodiscard]] static std::shared_ptr<CVLChecklistTextAttachment> init();

    [[nodiscard]] std::shared_ptr<NSTextAttachment> makeOfSameClass() const override { return init(); }

    [[nodiscard]] bool isOn() const;
    void setOn(bool on);

    [[nodiscard]] NSUInteger indentationLevel() const override { return m_indentationLevel; }

    void setIndentationLevel(NSUInteger level) { m_indentationLevel = level; }

    /// Always a CVLChecklistAttachmentCell: any other cell is replaced by a new one, which is off.
    [[nodiscard]] std::shared_ptr<NSTextAttachmentCell> attachmentCell() override;

    /// Made by `init`, with the same state and level.
    [[nodiscard]] std::shared_ptr<CVLChecklistTextAttachment> copy() const;

    /// CVLChecklistOnValueReplacementString or CVLChecklistOffValueReplacementString.
    [[nodiscard]] std::u16string replacementString() const;

    /// What the attachment is called in front of people: nothing.
    [[nodiscard]] static std::u16string displayName() { return {}; }

    /// One attachment character with this attachment, in its checklistParagraphStyle.
    [[nodiscard]] NSAttributedString attributedString();

    /// How the item's paragraph is set: as the body style's, with a head indent of 20 points and 18 more for
    /// each level. The first line's indent is the negative of that, odd as it looks: so it is in every note
    /// that there is.
    [[nodiscard]] NSParagraphStyle::Ref checklistParagraphStyle() const;

    /// CVLChecklistType, an archive of the attachment, then plain text.
    [[nodiscard]] std::vector<std::u16string> writableTypesForPasteboard() const override;
    [[nodiscard]] NSAny pasteboardPropertyListForType(std::u16string_view type) const override;

    /// Reads CVLChecklistType only. State and level are looked up at the top level of the archive, where what
    /// is written above does not have them: a box that was copied here comes back empty, at the top level.
    /// That asymmetry is kept, for both sides read and write what hosts already exchange. Bytes that are no
    /// archive give an empty box too.
    [[nodiscard]] static NSPasteboardReading pasteboardReading();

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    /// State and level only, nothing of the base class.
    void encodeWithCoder(NSCoder& coder) const override;

private:
    /// What comes from an archive has no file type: it is made as a plain attachment is, not by `init`.
    static NSAny initWithCoder(NSCoder& coder);
    static NSAny initWithPasteboardPropertyList(const NSAny& propertyList, std::u16string_view ofType);

    CVLChecklistAttachmentCell& checklistCell();

    std::atomic<NSUInteger> m_indentationLevel = 0;
};
