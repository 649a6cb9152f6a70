#include "note/NoteCheck.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "note/CVLNoteFile.h"
#include "tests/note/NotePackages.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Kind = NoteFinding::Kind;

constexpr std::size_t kMostBytes = 1'000'000;

class NoteCheckTest : public StyleTest {
protected:
    static NSFileWrapper::Ref packageOf(const NSAttributedString& text)
    {
        CVLNoteFile note;
        note.setNoteText(text);
        return note.fileWrapper();
    }

    static void remove(NSFileWrapper& package, std::u16string_view name)
    {
        package.removeFileWrapper(*package.fileWrapperForKey(name));
    }

    static void replace(NSFileWrapper& package, std::u16string_view name, std::string bytes)
    {
        remove(package, name);
        package.addRegularFileWithContents({std::move(bytes)}, name);
    }

    static std::vector<Kind> kindsOf(const NoteCheck& check)
    {
        std::vector<Kind> kinds;
        for (const auto& finding : check.findings)
            kinds.push_back(finding.kind);
        return kinds;
    }

    static NoteCheck checkOf(const NSFileWrapper& package) { return checkNotePackage(package, kMostBytes); }

    /// Without a TXT.rtf.
    static NoteCheck checkOfDividers(std::u16string_view characters, std::u16string_view range)
    {
        return checkOf(NotePackage()
                           .addText(NoteText().add(characters).text())
                           .addAttributes({{u"dividerRanges", NSAny::Array{std::u16string(range)}}})
                           .wrapper());
    }
};

NSAttributedString everything()
{
    auto text = checklistText({{true, 0, u"Salt"}, {false, 1, u"Leek"}});
    text.appendAttributedString(NoteText()
                                    .addAttachment(CVLDividerTextAttachment::init())
                                    .add(u"\n")
                                    .addAttachment(makeAttachment(u"a.png", "1"))
                                    .addAttachment(makeAttachment(u"a.png", "2"))
                                    .addAttachment(makeAttachment(u"b.zip"))
                                    .add(u" end")
                                    .text());
    return text;
}

TEST_F(NoteCheckTest, FindsNothingInASoundNote)
{
    for (const auto& text : {NSAttributedString(), everything()}) {
        const auto check = checkOf(*packageOf(text));
        EXPECT_THAT(kindsOf(check), IsEmpty());
        EXPECT_EQ(check.readability, NoteReadability::Readable);
    }
}

TEST_F(NoteCheckTest, FindsNothingInASavedNote)
{
    const TemporaryFolder folder;
    CVLNoteFile note;
    note.setNoteText(everything());
    ASSERT_TRUE(note.saveToFileURL(folder.url("a.cvlnote")));
    EXPECT_THAT(kindsOf(checkNote(folder.url("a.cvlnote"), kMostBytes)), IsEmpty());
}

TEST_F(NoteCheckTest, FindsAMissingText)
{
    const auto package = packageOf(NoteText().add(u"a").text());
    remove(*package, kNoteTextMember);
    const auto check = checkOf(*package);
    EXPECT_THAT(kindsOf(check), ElementsAre(Kind::MissingText));
    EXPECT_EQ(check.readability, NoteReadability::Recoverable);
}

TEST_F(NoteCheckTest, FindsADamagedText)
{
    const auto package = packageOf(NoteText().add(u"a").text());
    replace(*package, kNoteTextMember, "nothing");
    const auto check = checkOf(*package);
    EXPECT_THAT(kindsOf(check), ElementsAre(Kind::DamagedText));
    EXPECT_FALSE(check.findings.front().subject.empty());
    EXPECT_EQ(check.readability, NoteReadability::Recoverable);
}

TEST_F(NoteCheckTest, CannotTellWhatADamagedTextRefersTo)
{
    const auto package = packageOf(everything());
    replace(*package, kNoteTextMember, "nothing");
    EXPECT_THAT(kindsOf(checkOf(*package)), ElementsAre(Kind::DamagedText));
}

TEST_F(NoteCheckTest, TriesTheRecovery)
{
    const auto package = packageOf(NoteText().add(u"a").text());
    replace(*package, kNoteTextMember, "nothing");
    replace(*package, kNoteRTFMember, "no rich text");
    const auto check = checkOf(*package);
    EXPECT_THAT(kindsOf(check), ElementsAre(Kind::DamagedText, Kind::DamagedRTF));
    EXPECT_EQ(check.readability, NoteReadability::Unreadable);
    EXPECT_FALSE(check.error.domain().empty());
}

TEST_F(NoteCheckTest, AgreesWithTheReaderOnWhatCanBeRead)
{
    for (const auto* text : {"", "nothing", "missing"}) {
        for (const auto* rtf : {"{\\rtf1 a}", "no rich text", "missing"}) {
            const TemporaryFolder folder;
            folder.write("a.cvlnote/other", "x");
            if (std::string_view(text) != "missing")
                folder.write("a.cvlnote/NoteText", text);
            if (std::string_view(rtf) != "missing")
                folder.write("a.cvlnote/TXT.rtf", rtf);
            const LogLines log;
            const auto url = folder.url("a.cvlnote");
            const bool isRead = CVLNoteFile::initWithFileURL(url) != nullptr;
            const auto check = checkNote(url, kMostBytes);
            EXPECT_EQ(check.readability != NoteReadability::Unreadable, isRead) << text << ", " << rtf;
            EXPECT_EQ(check.error.domain().empty(), check.readability == NoteReadability::Readable)
                << text << ", " << rtf;
        }
    }
}

TEST_F(NoteCheckTest, FindsAnEmptyText)
{
    const auto package = packageOf(NoteText().add(u"a").text());
    replace(*package, kNoteTextMember, "");
    const auto check = checkOf(*package);
    EXPECT_THAT(kindsOf(check), ElementsAre(Kind::EmptyText));
    EXPECT_EQ(check.readability, NoteReadability::Readable);
}

TEST_F(NoteCheckTest, FindsMissingAndDamagedAttributes)
{
    const auto package = packageOf(NoteText().add(u"a").text());
    replace(*package, kNoteAttributesMember, "nothing");
    EXPECT_THAT(kindsOf(checkOf(*package)), ElementsAre(Kind::DamagedAttributes));
    remove(*package, kNoteAttributesMember);
    EXPECT_THAT(kindsOf(checkOf(*package)), ElementsAre(Kind::MissingAttributes));
}

TEST_F(NoteCheckTest, FindsAMissingFile)
{
    const auto package = packageOf(NoteText().addAttachment(makeAttachment(u"a.png")).add(u"a").text());
    for (const auto* name : {u"a.png", u"1__#$!@%!#__a.png"})
        if (package->fileWrapperForKey(name))
            remove(*package, name);
    const auto check = checkOf(*package);
    EXPECT_THAT(check.findings, ElementsAre(NoteFinding{Kind::MissingFile, u"a.png"}));
    EXPECT_EQ(check.readability, NoteReadability::Readable);
}

TEST_F(NoteCheckTest, FindsANameThatNoFileCanHave)
{
    const auto text = NoteText()
                          .addAttachment(NSTextAttachment::initWithFileWrapper(placeholderNamed(u"../a.png")))
                          .text();
    const auto check = checkOf(NotePackage().addText(text).addAttributes({}).wrapper());
    EXPECT_EQ(check.findings.front(), (NoteFinding{Kind::NamelessFile, {}}));
}

TEST_F(NoteCheckTest, FindsMembersThatNothingRefersTo)
{
    const auto package = packageOf(everything());
    package->addRegularFileWithContents({"x"}, u"stray.png");
    package->addRegularFileWithContents({"x"}, u".hidden");
    EXPECT_THAT(checkOf(*package).findings, ElementsAre(NoteFinding{Kind::UnusedMember, u"stray.png"}));
}

TEST_F(NoteCheckTest, FindsOwnMembersThatAreNoFiles)
{
    for (const auto name : {kNoteTextMember, kNoteAttributesMember}) {
        const auto package = packageOf(NoteText().add(u"a").text());
        remove(*package, name);
        const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
        folder->setPreferredFilename(std::u16string(name));
        package->addFileWrapper(folder);
        EXPECT_THAT(checkOf(*package).findings, ElementsAre(NoteFinding{Kind::NoFile, std::u16string(name)}));
    }
}

TEST_F(NoteCheckTest, FindsAFolderInPlaceOfAPicture)
{
    const auto package = packageOf(NoteText().addAttachment(makeAttachment(u"a.png")).add(u"a").text());
    remove(*package, u"a.png");
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->setPreferredFilename(u"a.png");
    package->addFileWrapper(folder);
    EXPECT_THAT(checkOf(*package).findings, ElementsAre(NoteFinding{Kind::NoFile, u"a.png"}));
    EXPECT_TRUE(checkOf(*package).findings.front().isLoss());
}

TEST_F(NoteCheckTest, FindsWhatKeepsAPackageFromBeingRead)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(CVLNoteFile().saveToFileURL(folder.url("a.cvlnote")));
    ASSERT_EQ(::mkfifo(folder.file("a.cvlnote/pipe").c_str(), 0600), 0);
    const auto check = checkNote(folder.url("a.cvlnote"), kMostBytes);
    EXPECT_EQ(check.readability, NoteReadability::Unreadable);
    EXPECT_THAT(check.findings, ElementsAre(NoteFinding{Kind::SpecialMember, u"pipe"}));
}

TEST_F(NoteCheckTest, FindsAMemberBeyondAllLimits)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(CVLNoteFile().saveToFileURL(folder.url("a.cvlnote")));
    folder.write("a.cvlnote/film.mov", "");
    ASSERT_EQ(::truncate(folder.file("a.cvlnote/film.mov").c_str(), (off_t{4} << 30) + 1), 0);
    const auto check = checkNote(folder.url("a.cvlnote"), kMostBytes);
    EXPECT_EQ(check.readability, NoteReadability::Unreadable);
    EXPECT_THAT(check.findings, ElementsAre(NoteFinding{Kind::HugeMember, u"film.mov"}));
}

TEST_F(NoteCheckTest, FindsLinks)
{
    const TemporaryFolder folder;
    CVLNoteFile note;
    note.setNoteText(NoteText().addAttachment(makeAttachment(u"a.png")).add(u"a").text());
    ASSERT_TRUE(note.saveToFileURL(folder.url("a.cvlnote")));
    std::filesystem::remove(folder.file("a.cvlnote/a.png"));
    std::filesystem::create_symlink("/etc/passwd", folder.file("a.cvlnote/a.png"));
    EXPECT_THAT(checkNote(folder.url("a.cvlnote"), kMostBytes).findings,
                ElementsAre(NoteFinding{Kind::NoFile, u"a.png"}));
}

TEST_F(NoteCheckTest, FindsDividersInImpossiblePlaces)
{
    struct Case {
        std::u16string_view characters;
        std::u16string_view range;
        std::vector<Kind> kinds;
    };

    for (const auto& [characters, range, kinds] : {
             Case{u"a***b", u"{1, 3}", {Kind::MissingRTF}},
             Case{u"a***", u"{1, 3}", {Kind::DividerAtEnd, Kind::MissingRTF}},
             Case{u"a***", u"{2, 3}", {Kind::DividerBehindText, Kind::MissingRTF}},
             Case{u"a***", u"{9, 3}", {Kind::DividerBehindText, Kind::MissingRTF}},
             Case{u"abcdef", u"{1, 3}", {Kind::MisplacedDivider, Kind::MissingRTF}},
             Case{u"a***b", u"{1, 18446744073709551615}", {Kind::DividerBehindText, Kind::MissingRTF}},
         })
        EXPECT_EQ(kindsOf(checkOfDividers(characters, range)), kinds);
    EXPECT_EQ(checkOfDividers(u"a***", u"{1, 3}").findings.front().subject, u"{1, 3}");
}

TEST_F(NoteCheckTest, FindsThatOtherProgramsSeeAnotherText)
{
    const auto package = packageOf(NoteText().add(u"a b").text());
    replace(*package, kNoteRTFMember, "{\\rtf1 a  b\\par}");
    EXPECT_THAT(kindsOf(checkOf(*package)), IsEmpty());
    replace(*package, kNoteRTFMember, "{\\rtf1 a c}");
    EXPECT_THAT(kindsOf(checkOf(*package)), ElementsAre(Kind::DifferentRTF));
    replace(*package, kNoteRTFMember, "no rich text");
    EXPECT_THAT(kindsOf(checkOf(*package)), ElementsAre(Kind::DamagedRTF));
    remove(*package, kNoteRTFMember);
    EXPECT_THAT(kindsOf(checkOf(*package)), ElementsAre(Kind::MissingRTF));
}

TEST_F(NoteCheckTest, FindsMembersThatAreTooLargeForTheIndex)
{
    const auto package = packageOf(NoteText().add(u"a").text());
    const auto size = package->fileWrapperForKey(kNoteTextMember)->regularFileContents()->bytes.size();
    EXPECT_THAT(checkNotePackage(*package, size).findings, IsEmpty());
    EXPECT_THAT(checkNotePackage(*package, size - 1).findings,
                ElementsAre(NoteFinding{Kind::LargeMember, u"NoteText"}));
}

TEST_F(NoteCheckTest, ListsNoMoreThanItsBound)
{
    const auto package = packageOf(NoteText().add(u"a").text());
    for (std::size_t count = 0; count <= NoteCheck::kMostFindings; ++count)
        package->addRegularFileWithContents({}, u"stray");
    EXPECT_EQ(checkOf(*package).findings.size(), NoteCheck::kMostFindings);
}

TEST_F(NoteCheckTest, SaysWhyThereIsNoPackage)
{
    const TemporaryFolder folder;
    folder.write("a.cvlnote", "x");
    const auto file = checkNote(folder.url("a.cvlnote"), kMostBytes);
    EXPECT_EQ(file.readability, NoteReadability::Unreadable);
    EXPECT_EQ(file.error.localizedDescription(), "Note file is not a file package.");
    EXPECT_EQ(checkNote(folder.url("missing"), kMostBytes).error.code(), ENOENT);
}

TEST_F(NoteCheckTest, HasASentenceAndANameForEveryFinding)
{
    EXPECT_EQ((NoteFinding{Kind::MissingFile, u"a.png"}.description()),
              u"The attached file a.png is missing.");
    EXPECT_EQ(nameOfNoteFinding(Kind::MissingFile), "missingFile");
    std::set<std::string_view> names;
    for (int kind = 0; kind <= static_cast<int>(Kind::DifferentRTF); ++kind) {
        const NoteFinding finding{static_cast<Kind>(kind), u"X"};
        EXPECT_FALSE(finding.description().empty());
        EXPECT_TRUE(names.insert(nameOfNoteFinding(finding.kind)).second);
    }
    EXPECT_TRUE((NoteFinding{Kind::MisplacedDivider, {}}.isLoss()));
    EXPECT_FALSE((NoteFinding{Kind::DividerAtEnd, {}}.isLoss()));
}

} // namespace
