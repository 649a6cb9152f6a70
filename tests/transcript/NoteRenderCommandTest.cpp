#include "note/CVLNoteFile.h"
#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

class NoteRenderCommand : public Transcript {
protected:
    NoteRenderCommand()
    {
        CVLNoteFile note;
        note.setNoteText(NSAttributedString(u"Groceries\nSalt\n"));
        EXPECT_TRUE(note.saveToFileURL(folder().url("a.cvlnote")));
    }

    [[nodiscard]] ChildProcess::Outcome render(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), {"note", "render"});
        return corvel(arguments);
    }

    [[nodiscard]] std::string contents(std::string_view name) const
    {
        std::ifstream file(folder().file(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Of a PNG file, in pixels.
    [[nodiscard]] int widthOfImage(std::string_view name) const
    {
        const auto bytes = contents(name);
        return static_cast<unsigned char>(bytes.at(18)) << 8U | static_cast<unsigned char>(bytes.at(19));
    }
};

TEST_F(NoteRenderCommand, DrawsInTheFormOfTheNamesExtension)
{
    for (const auto* name : {"a.png", "a.svg", "a.pdf", "b.PDF"}) {
        const auto outcome = render({"a.cvlnote", "-o", name});
        EXPECT_EQ(outcome.status, 0) << name;
        EXPECT_THAT(outcome.output, IsEmpty());
        EXPECT_THAT(outcome.error, IsEmpty());
    }
    EXPECT_THAT(contents("a.png"), StartsWith("\x89PNG"));
    EXPECT_THAT(contents("a.svg"), HasSubstr("<svg"));
    EXPECT_THAT(contents("a.pdf"), StartsWith("%PDF"));
    EXPECT_THAT(contents("b.PDF"), StartsWith("%PDF"));
}

TEST_F(NoteRenderCommand, DrawsAtTheWidthAndScaleAsked)
{
    EXPECT_EQ(render({"a.cvlnote", "-o", "a.png"}).status, 0);
    EXPECT_EQ(widthOfImage("a.png"), 600);
    EXPECT_EQ(render({"a.cvlnote", "-o", "a.png", "--width", "300", "--scale", "1.5", "--force"}).status, 0);
    EXPECT_EQ(widthOfImage("a.png"), 450);
}

TEST_F(NoteRenderCommand, DrawsInTheDarkAppearance)
{
    EXPECT_EQ(render({"a.cvlnote", "-o", "light.svg"}).status, 0);
    EXPECT_EQ(render({"a.cvlnote", "-o", "dark.svg", "--dark"}).status, 0);
    EXPECT_NE(contents("light.svg"), contents("dark.svg"));
}

TEST_F(NoteRenderCommand, DrawsAThumbnailWhateverTheNameIs)
{
    EXPECT_EQ(render({"--thumbnail", "128", "-o", "thumbnail", "a.cvlnote"}).status, 0);
    EXPECT_EQ(widthOfImage("thumbnail"), 128);
}

TEST_F(NoteRenderCommand, ReplacesNothingUnlessForcedTo)
{
    std::ofstream(folder().file("a.png")) << "mine";
    const std::vector<std::vector<std::string>> commands = {{}, {"--thumbnail", "128"}};
    for (auto command : commands) {
        command.insert(command.end(), {"a.cvlnote", "-o", "a.png"});
        const auto refused = render(command);
        EXPECT_EQ(refused.status, 1);
        EXPECT_EQ(refused.error, "corvel: a.png: File exists\n");
        EXPECT_EQ(contents("a.png"), "mine");
    }
    EXPECT_EQ(render({"a.cvlnote", "-o", "a.png", "--force"}).status, 0);
    EXPECT_THAT(contents("a.png"), StartsWith("\x89PNG"));
}

TEST_F(NoteRenderCommand, DrawsAThumbnailInPlaceOfAnEmptyFileOrAnImage)
{
    std::ofstream(folder().file("thumbnail")).close();
    EXPECT_EQ(render({"--thumbnail", "128", "-o", "thumbnail", "a.cvlnote"}).status, 0);
    EXPECT_EQ(render({"--thumbnail", "64", "-o", "thumbnail", "a.cvlnote"}).status, 0);
    EXPECT_EQ(widthOfImage("thumbnail"), 64);
}

TEST_F(NoteRenderCommand, DrawsNothingIntoANote)
{
    const auto before = contents("a.cvlnote/NoteText");
    for (const auto* name : {"a.cvlnote/NoteText", "a.cvlnote/new.png"}) {
        const auto outcome = render({"--thumbnail", "128", "-o", name, "--force", "a.cvlnote"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.error, StartsWith(std::string("corvel: ") + name + ": "));
    }
    EXPECT_EQ(contents("a.cvlnote/NoteText"), before);
    EXPECT_FALSE(std::filesystem::exists(folder().file("a.cvlnote/new.png")));
}

TEST_F(NoteRenderCommand, SaysWhyANoteCannotBeDrawn)
{
    const auto missing = render({"missing.cvlnote", "-o", "a.png"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.error, StartsWith("corvel: missing.cvlnote: "));
    EXPECT_FALSE(std::filesystem::exists(folder().file("a.png")));
    EXPECT_EQ(render({"a.cvlnote", "-o", "no/such/folder.png"}).status, 1);
    const auto large = render({"a.cvlnote", "-o", "a.png", "--width", "10000", "--scale", "10"});
    EXPECT_EQ(large.status, 1);
    EXPECT_THAT(large.error, HasSubstr("A PDF document has pages."));
}

TEST_F(NoteRenderCommand, SaysHowItIsUsed)
{
    const std::vector<std::vector<std::string>> mistakes = {
        {"a.cvlnote"},
        {"a.cvlnote", "-o", ""},
        {"a.cvlnote", "-o", "a.gif"},
        {"a.cvlnote", "-o", "png"},
        {"-o", "a.png"},
        {"a.cvlnote", "-o", "a.png", "--width", "99"},
        {"a.cvlnote", "-o", "a.png", "--width", "10001"},
        {"a.cvlnote", "-o", "a.png", "--width", "wide"},
        {"a.cvlnote", "-o", "a.png", "--width", "nan"},
        {"a.cvlnote", "-o", "a.png", "--scale", "0"},
        {"a.cvlnote", "-o", "a.png", "--scale", "11"},
        {"a.cvlnote", "-o", "a.pdf", "--scale", "2"},
        {"a.cvlnote", "-o", "a.png", "--thumbnail", "15"},
        {"a.cvlnote", "-o", "a.png", "--thumbnail", "2049"},
        {"a.cvlnote", "-o", "a.png", "--thumbnail", "128", "--width", "300"},
    };
    for (const auto& mistake : mistakes) {
        const auto outcome = render(mistake);
        EXPECT_EQ(outcome.status, 2) << mistake.back();
        EXPECT_THAT(outcome.error, StartsWith("corvel: "));
    }
}

} // namespace
