#include "service/AttachmentIndexing.h"

#include "tests/service/RequestTest.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kRecognised = "TextRecognitionString";

class CatTerms final : public ImageTerms {
public:
    [[nodiscard]] bool isFileTypeSupported(const UTType& type) const override
    {
        return type.conformsToType("public.png");
    }

    [[nodiscard]] std::vector<std::string> searchTermsForFile(const NSURL& url) const override
    {
        return url.lastPathComponent() == "cat.png" ? std::vector<std::string>{"cat", "sofa"}
                                                    : std::vector<std::string>();
    }
};

class AttachmentIndexingTest : public RequestTest {
protected:
    AttachmentIndexingTest()
    {
        std::filesystem::create_directory(folder.file("n.cvlnote"));
        environment.sources.imageTerms = std::make_shared<const CatTerms>();
    }

    Events eventsOfAttachments() const
    {
        auto events = record->events;
        std::erase_if(events, [](const std::string& event) {
            return !event.starts_with("add n.cvlnote/") && !event.starts_with("remove");
        });
        return events;
    }
};

} // namespace

TEST_F(AttachmentIndexingTest, AddsFilesAndRecognisedTexts)
{
    folder.write("n.cvlnote/a.txt", "x");
    indexItem("n.cvlnote", {{"a.txt", {}}, {"b.txt", {{kRecognised, "seen"}}}, {"c.txt", {{"other", "y"}}}});
    EXPECT_THAT(eventsOfAttachments(),
                ElementsAre("add n.cvlnote/a.txt by file", "add n.cvlnote/b.txt with \"seen\"",
                            "add n.cvlnote/c.txt by file"));
}

TEST_F(AttachmentIndexingTest, JoinsRecognisedTextAndTerms)
{
    folder.write("n.cvlnote/cat.png", "x");
    folder.write("n.cvlnote/dog.png", "x");
    indexItem("n.cvlnote", {{"cat.png", {{kRecognised, "seen"}}}, {"dog.png", {}}});
    indexItem("n.cvlnote", {{"cat.png", {}}, {"dog.png", {{kRecognised, "seen"}}}});
    EXPECT_THAT(eventsOfAttachments(),
                ElementsAre("add n.cvlnote/cat.png with \"seen\ncat\nsofa\"", "add n.cvlnote/dog.png by file",
                            "add n.cvlnote/cat.png with \"cat\nsofa\"",
                            "add n.cvlnote/dog.png with \"seen\""));
}

TEST_F(AttachmentIndexingTest, RemovesChildrenThatAreNotListedOrHaveNoName)
{
    const auto parent = SKDocument::createWithURL(folder.url("n.cvlnote"));
    record->children = {SKDocument::create({}, parent, "old"), SKDocument::create({}, parent, ""),
                        SKDocument::create({}, parent, "kept"), SKDocument::create({}, parent, "older")};
    indexItem("n.cvlnote", {{"kept", {{kRecognised, "k"}}}});
    EXPECT_THAT(eventsOfAttachments(),
                ElementsAre("remove n.cvlnote/old", "remove n.cvlnote/", "remove n.cvlnote/older",
                            "add n.cvlnote/kept with \"k\""));
}

TEST_F(AttachmentIndexingTest, RemovesAllChildrenWhenNothingIsListed)
{
    const auto parent = SKDocument::createWithURL(folder.url("n.cvlnote"));
    record->children = {SKDocument::create({}, parent, "a"), SKDocument::create({}, parent, "b")};
    indexItem("n.cvlnote");
    EXPECT_THAT(eventsOfAttachments(), ElementsAre("remove n.cvlnote/a", "remove n.cvlnote/b"));
}

TEST_F(AttachmentIndexingTest, HandlesRTFDPackagesAlikeAndOtherFoldersNot)
{
    folder.write("r.rtfd/a.txt", "x");
    folder.write("plain/a.txt", "x");
    indexItem("r.rtfd", {{"a.txt", {}}});
    indexItem("plain", {{"a.txt", {}}});
    EXPECT_THAT(record->eventsStartingWith("add r.rtfd/"), ElementsAre("add r.rtfd/a.txt by file"));
    EXPECT_THAT(record->eventsStartingWith("add plain/"), IsEmpty());
}

TEST_F(AttachmentIndexingTest, LogsWhatCannotBeAddedAndGoesOn)
{
    record->adds = [](const std::string& name) { return name != "n.cvlnote/a"; };
    indexItem("n.cvlnote", {{"a", {}}, {"b", {}}});
    EXPECT_THAT(log, ElementsAre("Couldn't index attachment a"));
    EXPECT_THAT(eventsOfAttachments(), ElementsAre("add n.cvlnote/a by file", "add n.cvlnote/b by file"));
    EXPECT_EQ(errorCode(), 0);
}

TEST_F(AttachmentIndexingTest, ReadsNothingOutsideThePackage)
{
    folder.write("secret.txt", "s");
    std::filesystem::create_symlink(folder.file("secret.txt"), folder.file("n.cvlnote/link.txt"));
    indexItem("n.cvlnote", {{"", {}}, {".", {}}, {"..", {}}, {"../secret.txt", {}}, {"link.txt", {}}});
    EXPECT_THAT(eventsOfAttachments(), IsEmpty());
    EXPECT_THAT(log,
                ElementsAre("Couldn't index attachment ", "Couldn't index attachment .",
                            "Couldn't index attachment ..", "Couldn't index attachment ../secret.txt",
                            "Couldn't index attachment link.txt"));
    EXPECT_EQ(errorCode(), 0);
}

TEST_F(AttachmentIndexingTest, PutsALineBreakBetweenEmptyRecognisedTextAndTerms)
{
    folder.write("n.cvlnote/cat.png", "x");
    indexItem("n.cvlnote", {{"cat.png", {{kRecognised, ""}}}});
    EXPECT_THAT(eventsOfAttachments(), ElementsAre("add n.cvlnote/cat.png with \"\ncat\nsofa\""));
}
