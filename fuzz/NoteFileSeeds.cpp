#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "colours/HighlightAttribute.h"
#include "fuzz/Seeds.h"
#include "note/CVLNoteFile.h"
#include "platform/text/NSAttributeNames.h"

#include <stdexcept>
#include <utility>

namespace {

NSFileWrapper::Ref file(const std::u16string& name)
{
    auto wrapper = NSFileWrapper::initRegularFileWithContents({"contents"});
    wrapper->setPreferredFilename(name);
    return wrapper;
}

NSAttributedString attached(const NSAny& attachment)
{
    return NSAttributedString::attributedStringWithAttachment(attachment);
}

NSMutableAttributedString textWithEverything()
{
    NSMutableAttributedString text{std::u16string(u"Harbour\n")};
    text.appendAttributedString(CVLDividerTextAttachment::init()->attributedString());
    text.appendAttributedString(CVLChecklistTextAttachment::init()->attributedString());
    text.appendAttributedString(NSAttributedString(u"item\n"));
    text.appendAttributedString(attached(NSTextAttachment::initWithFileWrapper(file(u"a.png"))));
    text.appendAttributedString(attached(CVLFileAttachment::initWithFileWrapper(file(u"a.png"))));
    text.appendAttributedString(
        NSAttributedString(u"lights", {{std::u16string(CVLHighlightTextAttributeName), 3}}));
    return text;
}

NSFileWrapper::Ref packageOf(const NSAttributedString& text)
{
    CVLNoteFile note;
    note.setNoteText(text);
    auto package = note.fileWrapper();
    if (!package)
        throw std::runtime_error("a note cannot be written");
    package->setPreferredFilename(u"a.cvlnote");
    return package;
}

std::string serialized(const NSFileWrapper& package)
{
    auto data = package.serializedRepresentation();
    if (!data)
        throw std::runtime_error("a note cannot be serialised");
    return std::move(data->bytes);
}

} // namespace

std::vector<Seed> noteFileSeeds()
{
    const auto everything = packageOf(textWithEverything());
    return {
        {"empty", serialized(*packageOf({}))},
        {"everything", serialized(*everything)},
        {"text", everything->fileWrapperForKey(kNoteTextMember)->regularFileContents()->bytes},
    };
}
