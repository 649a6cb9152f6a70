// How long notes take to open and to save: notes of 10,000 to 1,000,000 units with runs and attachments in
// proportion, one with 100 MB of attachments, and notes of 100,000 checklist items and dividers. Beside them
// stand the property list of the note's text read by itself, here and with libplist, and the package's bytes
// written and synced as they are: neither opening nor saving can do with less. Reading is in processor time,
// of which other work on the machine takes none; writing is by the clock.

#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "bench/Growth.h"
#include "bench/PeerPropertyLists.h"
#include "note/CVLNoteFile.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSTextAttachment.h"

#include <fmt/format.h>

#include <array>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

struct Note {
    const char* name;
    NSAttributedString (*text)();
};

void appendFile(NSMutableAttributedString& text, NSUInteger number, std::size_t byteCount)
{
    const auto digits = std::to_string(number);
    auto file = NSFileWrapper::initRegularFileWithContents({std::string(byteCount, 'x')});
    file->setPreferredFilename(u"file " + std::u16string(digits.begin(), digits.end()) + u".zip");
    text.appendAttributedString(
        NSAttributedString::attributedStringWithAttachment(NSTextAttachment::initWithFileWrapper(file)));
}

/// Runs of two fonts in turn, every tenth of them behind a file.
NSAttributedString richText(NSUInteger length, NSUInteger runCount, std::size_t fileByteCount)
{
    NSMutableAttributedString text;
    for (NSUInteger run = 0; run < runCount; ++run) {
        if (run % 10 == 0)
            appendFile(text, run, fileByteCount);
        const auto font = NSFont::fontWithName(run % 2 == 0 ? u"HelveticaNeue" : u"HelveticaNeue-Bold", 12);
        std::u16string characters;
        while (characters.size() < length / runCount)
            characters += characters.size() % 70 == 63 ? u"\n" : u"word ";
        text.appendAttributedString(
            NSAttributedString(characters, {{std::u16string(NSFontAttributeName), font}}));
    }
    return text.copy();
}

NSAttributedString checklist(NSUInteger count)
{
    NSMutableAttributedString text;
    for (NSUInteger number = 0; number < count; ++number) {
        auto box = CVLChecklistTextAttachment::init();
        box->setIndentationLevel(number % 4);
        text.appendAttributedString(box->attributedString());
        text.appendAttributedString(NSAttributedString(u"item\n"));
    }
    return text.copy();
}

NSAttributedString dividers(NSUInteger count)
{
    NSMutableAttributedString text;
    for (NSUInteger number = 0; number < count; ++number) {
        text.appendAttributedString(CVLDividerTextAttachment::init()->attributedString());
        text.appendAttributedString(NSAttributedString(u"between"));
    }
    return text.copy();
}

void require(bool isDone, const char* what)
{
    if (!isDone)
        throw std::runtime_error(what);
}

constexpr std::size_t kRepetitions = 5;

/// Milliseconds of the fastest run, by the clock: what is written is synced, which is waiting.
double timeOfWriting(const std::function<void()>& run)
{
    return bestTime(run, kRepetitions) * 1e3;
}

/// Milliseconds of processor time of the fastest run: what is read lies in the system's memory.
double timeOfReading(const std::function<void()>& run)
{
    return bestProcessorTime(run, kRepetitions) * 1e3;
}

/// What libplist takes for the property list, and how often that goes into opening the note.
std::string peerColumns(const std::string& archive, double opening)
{
    if (!hasPeerOfPropertyLists())
        return "not installed | -";
    const auto parsing = timeOfReading([&archive] { readPropertyListWithPeer(archive); });
    return fmt::format("{:.1f} | {:.2f}", parsing, opening / parsing);
}

std::size_t byteCountOf(const fs::path& package)
{
    std::size_t count = 0;
    for (const auto& member : fs::recursive_directory_iterator(package))
        count += member.is_regular_file() ? member.file_size() : 0;
    return count;
}

constexpr std::array<Note, 9> kNotes{{
    {"20 runs, 2 files", [] { return richText(10'000, 20, 1'000); }},
    {"200 runs, 20 files", [] { return richText(100'000, 200, 1'000); }},
    {"2,000 runs, 200 files", [] { return richText(1'000'000, 2'000, 1'000); }},
    {"2,000 runs, 200 files of 500 KB", [] { return richText(1'000'000, 2'000, 500'000); }},
    {"100,000 runs, 10,000 files", [] { return richText(1'000'000, 100'000, 10); }},
    {"10,000 checklist items", [] { return checklist(10'000); }},
    {"100,000 checklist items", [] { return checklist(100'000); }},
    {"10,000 dividers", [] { return dividers(10'000); }},
    {"100,000 dividers", [] { return dividers(100'000); }},
}};

void measure(const Note& one, const fs::path& folder)
{
    const auto text = one.text();
    const auto path = folder / "a.cvlnote";
    const auto url = NSURL::fileURLWithPath(path.native());
    CVLNoteFile note;
    note.setNoteText(text);
    const auto saving = timeOfWriting([&] { require(note.saveToFileURL(url), "not saved"); });
    const auto opening
        = timeOfReading([&] { require(CVLNoteFile::initWithFileURL(url) != nullptr, "not opened"); });
    const auto package = NSFileWrapper::initWithURL(url, NSFileWrapperReadingOptions::Immediate);
    require(package != nullptr, "not read");
    const auto archive = package->fileWrapperForKey(u"NoteText");
    const auto parsing = timeOfReading([&] {
        require(
            !NSPropertyListSerialization::propertyListWithData(archive->regularFileContents()->bytes).isNil(),
            "not parsed");
    });
    const auto reading = timeOfReading([&] {
        require(NSFileWrapper::initWithURL(url, NSFileWrapperReadingOptions::Immediate) != nullptr,
                "not read");
    });
    const auto copy = NSURL::fileURLWithPath((folder / "copy.cvlnote").native());
    const auto writing = timeOfWriting(
        [&] { require(package->writeToURL(copy, NSFileWrapperWritingAtomic), "not written"); });
    constexpr double kMegabyte = 1e6;
    fmt::print("| {} | {} | {:.1f} | {:.1f} | {:.1f} | {} | {:.1f} | {:.1f} | {:.1f} | {:.2f} |\n", one.name,
               text.length(), static_cast<double>(byteCountOf(path)) / kMegabyte, opening, parsing,
               peerColumns(archive->regularFileContents()->bytes, opening), reading, saving, writing,
               saving / writing);
}

} // namespace

/// With an argument, only the notes with that in their names.
int main(int argumentCount, char** arguments)
{
    const std::string wanted = argumentCount > 1 ? arguments[1] : "";
    const auto folder = fs::temp_directory_path() / ("corvel-note-benchmark-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    fmt::print("| note | units | MB on disk | open ms | parse its text ms | libplist ms | open / libplist "
               "| read its files ms | save ms | write its files ms | save / write |\n"
               "| --- | --- | --- | --- | --- | --- | --- | --- | --- | --- | --- |\n");
    int status = 0;
    try {
        for (const auto& note : kNotes) {
            if (std::string_view(note.name).find(wanted) != std::string_view::npos)
                measure(note, folder);
        }
    } catch (const std::exception& exception) {
        fmt::print(stderr, "note-benchmark: {}\n", exception.what());
        status = 1;
    }
    std::error_code ignored; // What is left lies in the temporary folder.
    fs::remove_all(folder, ignored);
    return status;
}
