// How long notes take to open and to save: notes of 10,000 to 1,000,000 units with runs and attachments in
// proportion, one with 100 MB of attachments, and notes of 100,000 checklist items and dividers. Beside them
// stand the property list of the note's text read by itself, and the package's bytes written and synced as
// they are: neither opening nor saving can do with less.

#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "note/CVLNoteFile.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSTextAttachment.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <limits>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr int kRepetitions = 5;

struct Case {
    const char* name;
    NSAttributedString text;
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

/// Milliseconds of the fastest run.
double fastest(const std::function<void()>& run)
{
    auto best = std::numeric_limits<double>::infinity();
    for (int repetition = 0; repetition < kRepetitions; ++repetition) {
        const auto start = std::chrono::steady_clock::now();
        run();
        const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - start;
        best = std::min(best, spent.count());
    }
    return best;
}

std::size_t byteCountOf(const fs::path& package)
{
    std::size_t count = 0;
    for (const auto& member : fs::recursive_directory_iterator(package))
        count += member.is_regular_file() ? member.file_size() : 0;
    return count;
}

void measure(const Case& one, const fs::path& folder)
{
    const auto path = folder / "a.cvlnote";
    const auto url = NSURL::fileURLWithPath(path.native());
    CVLNoteFile note;
    note.setNoteText(one.text);
    const auto saving = fastest([&] { require(note.saveToFileURL(url), "not saved"); });
    const auto opening
        = fastest([&] { require(CVLNoteFile::initWithFileURL(url) != nullptr, "not opened"); });
    const auto package = NSFileWrapper::initWithURL(url, NSFileWrapperReadingOptions::Immediate);
    require(package != nullptr, "not read");
    const auto archive = package->fileWrapperForKey(u"NoteText");
    const auto parsing = fastest([&] {
        require(
            !NSPropertyListSerialization::propertyListWithData(archive->regularFileContents()->bytes).isNil(),
            "not parsed");
    });
    const auto reading = fastest([&] {
        require(NSFileWrapper::initWithURL(url, NSFileWrapperReadingOptions::Immediate) != nullptr,
                "not read");
    });
    const auto copy = NSURL::fileURLWithPath((folder / "copy.cvlnote").native());
    const auto writing
        = fastest([&] { require(package->writeToURL(copy, NSFileWrapperWritingAtomic), "not written"); });
    constexpr double kMegabyte = 1e6;
    fmt::print("| {} | {} | {:.1f} | {:.1f} | {:.1f} | {:.1f} | {:.1f} | {:.1f} |\n", one.name,
               one.text.length(), static_cast<double>(byteCountOf(path)) / kMegabyte, opening, parsing,
               reading, saving, writing);
}

} // namespace

int main()
{
    const auto folder = fs::temp_directory_path() / ("corvel-note-benchmark-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    fmt::print(
        "| note | units | MB on disk | open ms | parse its text ms | read its files ms | save ms | write "
        "its files ms |\n| --- | --- | --- | --- | --- | --- | --- | --- |\n");
    int status = 0;
    try {
        measure({"20 runs, 2 files", richText(10'000, 20, 1'000)}, folder);
        measure({"200 runs, 20 files", richText(100'000, 200, 1'000)}, folder);
        measure({"2,000 runs, 200 files", richText(1'000'000, 2'000, 1'000)}, folder);
        measure({"2,000 runs, 200 files of 500 KB", richText(1'000'000, 2'000, 500'000)}, folder);
        measure({"100,000 runs, 10,000 files", richText(1'000'000, 100'000, 10)}, folder);
        measure({"10,000 checklist items", checklist(10'000)}, folder);
        measure({"100,000 checklist items", checklist(100'000)}, folder);
        measure({"10,000 dividers", dividers(10'000)}, folder);
        measure({"100,000 dividers", dividers(100'000)}, folder);
    } catch (const std::exception& exception) {
        fmt::print(stderr, "note-benchmark: {}\n", exception.what());
        status = 1;
    }
    std::error_code ignored; // What is left lies in the temporary folder.
    fs::remove_all(folder, ignored);
    return status;
}
