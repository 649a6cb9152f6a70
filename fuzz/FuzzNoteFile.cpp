// Any package gives a note or none; a note that there is can be written and read back, and what was read back
// has as many characters when it goes through that again. The bytes are a package in serialised form; what is
// none is the text of a package without other members.

#include "note/CVLNoteFile.h"
#include "platform/foundation/NSLog.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace {

NSFileWrapper::Ref packageOf(std::string_view bytes)
{
    if (auto package = NSFileWrapper::initWithSerializedRepresentation(bytes))
        return package;
    auto package = std::make_shared<NSFileWrapper>(NSFileType::Directory);
    package->addRegularFileWithContents({std::string(bytes)}, kNoteTextMember);
    return package;
}

/// Dividers that end a note come back as their text, which is not looked at here.
bool endsWithDivider(const NSAttributedString& text)
{
    return text.length() > 0 && text.characterAtIndex(text.length() - 1) == u'\uFFFC';
}

/// Null when the note cannot be written.
std::unique_ptr<CVLNoteFile> roundTrip(const CVLNoteFile& note)
{
    const auto written = note.fileWrapper();
    auto again = written ? CVLNoteFile::initWithFileWrapper(*written) : nullptr;
    if (written && !again)
        std::abort();
    return again;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const NSLogCapture quiet([](std::string_view /*line*/) {});
    const auto package = packageOf({reinterpret_cast<const char*>(data), size});
    NSError error;
    const auto note = CVLNoteFile::initWithFileWrapper(*package, &error);
    if (!note) {
        if (error.domain().empty())
            std::abort();
        return 0;
    }
    // A divider over several characters comes back as one, so the first round may shorten the text.
    const auto first = roundTrip(*note);
    const auto second = first ? roundTrip(*first) : nullptr;
    if (second && !endsWithDivider(first->noteText())
        && second->noteText().length() != first->noteText().length())
        std::abort();
    return 0;
}
