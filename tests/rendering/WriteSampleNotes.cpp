// Writes the sample notes into a folder, for the pictures in the documentation.

#include "tests/rendering/SampleNotes.h"

#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <filesystem>

namespace {

bool write(const CVLNoteFile& note, const std::filesystem::path& path)
{
    NSError error;
    if (note.saveToFileURL(NSURL::fileURLWithPath(path.native()), &error))
        return true;
    fmt::print(stderr, "sample-notes: {}: {}\n", path.native(), error.localizedDescription());
    return false;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2) {
        fmt::print(stderr, "usage: sample-notes FOLDER\n");
        return 2;
    }
    try {
        const std::filesystem::path folder(arguments[1]);
        std::filesystem::create_directories(folder);
        const auto isDone = write(*groceriesNote(), folder / "Groceries.cvlnote")
            && write(*journeyNote(), folder / "Journey.cvlnote")
            && write(*picturesNote(), folder / "Files.cvlnote")
            && write(*longNote(), folder / "Walk.cvlnote");
        return isDone ? 0 : 1;
    } catch (const std::exception& exception) {
        fmt::print(stderr, "sample-notes: {}\n", exception.what());
        return 1;
    }
}
