#pragma once

#include "platform/text/NSAttributedString.h"
#include "platform/text/NSTextAttachment.h"

#include <memory>
#include <string_view>

class CVLDividerTextAttachmentCell;
class NSTextView;

/// The file type of every divider attachment.
inline constexpr std::u16string_view CVLDividerTextAttachmentType = u"com.tessel.corvel.note.divider";
/// What stands for a divider in plain text.
inline constexpr std::u16string_view CVLDividerReplacementString = u"***";

/// A horizontal line across a note. Always owned by shared pointers.
class CVLDividerTextAttachment final : public NSTextAttachment,
                                       public std::enable_shared_from_this<CVLDividerTextAttachment> {
public:
    /// Without a file type and a cell; `init` makes one with both.
    CVLDividerTextAttachment() = default;

    [[nodiscard]] static std::shared_ptr<CVLDividerTextAttachment> init();
    /// The cell gets to know the text view, which it does not own.
    [[nodiscard]] static std::shared_ptr<CVLDividerTextAttachment>
    initWithTextView(const std::shared_ptr<NSTextView>& textView);

    [[nodiscard]] std::shared_ptr<NSTextAttachment> makeOfSameClass() const override { return init(); }

    /// Made on first use when there is none.
    [[nodiscard]] std::shared_ptr<NSTextAttachmentCell> attachmentCell() override;

    /// A line break, the divider and a line break, in the body style and the dynamic text colour.
    [[nodiscard]] NSAttributedString attributedString();

    /// CVLDividerReplacementString in the body style, centred.
    [[nodiscard]] static NSAttributedString replacementString();

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;

private:
    static NSAny initWithCoder(NSCoder& coder);
};
