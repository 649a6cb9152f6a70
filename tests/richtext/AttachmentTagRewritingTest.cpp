#include "richtext/AttachmentTagRewriting.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/HTMLAttachmentTags.h"
#include "platform/types/UTType.h"
#include "tests/richtext/Attachments.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>

namespace {

struct TestFile {
    std::u16string name;
    /// An extension; none for a file without a type.
    std::u16string_view type;
    /// Whether the file is one of those whose tags are rewritten.
    bool isListed = true;
};

AttachmentsByName attachmentsOf(const std::vector<TestFile>& files)
{
    AttachmentsByName attachments;
    for (const auto& file : files) {
        if (!file.isListed)
            continue;
        const auto wrapper = makeFile(u"x", "abc");
        wrapper->setPreferredFilename(file.type.empty() ? std::nullopt
                                                        : std::optional(u"x." + std::u16string(file.type)));
        attachments.insert_or_assign(file.name, NSTextAttachment::initWithFileWrapper(wrapper));
    }
    return attachments;
}

/// One name after the other, every occurrence of its tag.
std::string expected(std::string html, const AttachmentsByName& attachments)
{
    for (const auto& [name, attachment] : attachments) {
        if (!attachment->fileType())
            continue;
        const auto type = UTType::typeWithIdentifier(UTF8FromUTF16(*attachment->fileType()));
        const bool isImage = type->conformsToType(kUTTypeImage);
        const auto tag
            = isImage || type->conformsToType(kUTTypePDF) ? htmlImageTag(name) : htmlObjectTag(name);
        const auto replacement = isImage ? "<img style=\"max-width: 100%\" src=\"data:"
                + *type->preferredMIMEType() + ";base64,YWJj\" alt=\"" + htmlNameInTag(name) + "\">"
                                         : "";
        for (auto place = html.find(tag); place != std::string::npos;
             place = html.find(tag, place + replacement.size()))
            html.replace(place, tag.size(), replacement);
    }
    return html;
}

std::string tagOf(const TestFile& file)
{
    return file.type == u"zip" || file.type.empty() ? htmlObjectTag(file.name) : htmlImageTag(file.name);
}

const std::vector<std::u16string> kPieces{
    u"a", u"b", u" ", u"\"", u">", u"<", u"\" alt=\"", u"</object>", u"<object data=\"file://"};
const std::vector<std::u16string> kTagBeginnings{u"<img src=\"file:///", u"<object data=\"file:///a"};

template <typename Value> const Value& pick(const std::vector<Value>& values, std::mt19937& random)
{
    return values[random() % values.size()];
}

/// The tag of one of the files, sometimes with that of another somewhere within.
std::u16string randomTags(const std::vector<TestFile>& files, std::mt19937& random)
{
    auto tag = UTF16FromUTF8(tagOf(pick(files, random)));
    if (random() % 2 == 0)
        tag.insert(random() % tag.size(), UTF16FromUTF8(tagOf(pick(files, random))));
    return tag;
}

std::vector<TestFile> randomFiles(std::mt19937& random, bool holdTags)
{
    const std::vector<std::u16string_view> types{u"png", u"pdf", u"zip", u""};
    std::vector<TestFile> files;
    for (auto count = 1 + random() % 4; count > 0; --count) {
        TestFile file{u"", pick(types, random), random() % 3 != 0};
        for (auto left = 1 + random() % 3; left > 0; --left) {
            const auto choice = random() % 6;
            if (holdTags && choice < 3 && files.size() > 1)
                file.name += randomTags(files, random);
            else
                file.name += pick(holdTags && choice == 3 ? kTagBeginnings : kPieces, random);
        }
        files.push_back(file);
    }
    return files;
}

} // namespace

TEST(AttachmentTagRewriting, PutsImagesIntoTheirTags)
{
    EXPECT_EQ(htmlByRewritingAttachmentTags(R"(<p>1<img src="file:///a%20b.png" alt="a b.png">2</p>)",
                                            attachmentsOf({{u"a b.png", u"png"}})),
              R"(<p>1<img style="max-width: 100%" src="data:image/png;base64,YWJj" alt="a b.png">2</p>)");
}

TEST(AttachmentTagRewriting, TakesTheTagsOfOtherFilesAway)
{
    EXPECT_EQ(htmlByRewritingAttachmentTags(
                  R"(1<img src="file:///r.pdf" alt="r.pdf">2<object data="file:///z">z</object>3)",
                  attachmentsOf({{u"r.pdf", u"pdf"}, {u"z", u"zip"}})),
              "123");
}

TEST(AttachmentTagRewriting, TakesEveryTagOfAName)
{
    const auto tag = htmlObjectTag(u"z");
    EXPECT_EQ(htmlByRewritingAttachmentTags(tag + "1" + tag + tag, attachmentsOf({{u"z", u"zip"}})), "1");
}

TEST(AttachmentTagRewriting, LeavesTagsThatAreSpelledOtherwise)
{
    for (const std::string html :
         {R"(<img src="file:///z" alt="z">)", R"(<object data="file:///z">y</object>)",
          R"(<object data="file:///z"></object>)", R"(<object data="file:///z)",
          R"(<object data="file:///z")", R"(<OBJECT data="file:///z">z</OBJECT>)",
          R"(<object  data="file:///z">z</object>)", "<"})
        EXPECT_EQ(htmlByRewritingAttachmentTags(html, attachmentsOf({{u"z", u"zip"}})), html);
}

TEST(AttachmentTagRewriting, LeavesFilesWithoutATypeAlone)
{
    const auto file = makeFile(u"z");
    file->setPreferredFilename(std::nullopt);
    const auto tag = htmlObjectTag(u"z");
    EXPECT_EQ(htmlByRewritingAttachmentTags(tag, {{u"z", NSTextAttachment::initWithFileWrapper(file)}}), tag);
}

TEST(AttachmentTagRewriting, GivesAFolderThatIsCalledAnImageNoData)
{
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->setPreferredFilename(u"x.png");
    EXPECT_EQ(htmlByRewritingAttachmentTags(htmlImageTag(u"x.png"),
                                            {{u"x.png", NSTextAttachment::initWithFileWrapper(folder)}}),
              R"(<img style="max-width: 100%" src="data:image/png;base64," alt="x.png">)");
}

TEST(AttachmentTagRewriting, FindsNoTagInTheNameOfAnotherFile)
{
    const std::u16string outer = u"x<object data=\"file:///a\">a</object>.png";
    const auto attachments = attachmentsOf({{u"a", u"zip"}, {outer, u"png"}});
    EXPECT_EQ(htmlByRewritingAttachmentTags(htmlImageTag(outer), attachments),
              R"(<img style="max-width: 100%" src="data:image/png;base64,YWJj" )"
              R"(alt="x&lt;object data=&quot;file:///a&quot;&gt;a&lt;/object&gt;.png">)");
}

TEST(AttachmentTagRewriting, GivesWhatReplacingNameAfterNameGives)
{
    std::mt19937 random(31);
    for (int round = 0; round < 10000; ++round) {
        // In every other round no name holds what begins a tag.
        const auto files = randomFiles(random, round % 2 == 0);
        std::string html;
        for (auto left = random() % 8; left > 0; --left)
            html += random() % 2 == 0 ? tagOf(pick(files, random)) : UTF8FromUTF16(pick(kPieces, random));
        const auto attachments = attachmentsOf(files);
        ASSERT_EQ(htmlByRewritingAttachmentTags(html, attachments), expected(html, attachments)) << html;
    }
}
