#include "fuzz/Seeds.h"

#include "note/CVLNoteFile.h"
#include "platform/foundation/FoundationClasses.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/foundation/TextEncoding.h"
#include "platform/media/EPUBReader.h"
#include "platform/media/LegacyWordReader.h"
#include "platform/media/OfficeOpenXMLReader.h"
#include "platform/media/OpenDocumentReader.h"
#include "platform/media/XMLReader.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "tests/support/ReadWith.h"

#include <gtest/gtest.h>

#include <array>

// A seed that its reader refuses at its first bytes is none: mutations of it go nowhere.

TEST(Seeds, AreWordDocuments)
{
    for (const auto& seed : legacyWordSeeds()) {
        const auto content = readWith(readLegacyWord, seed.bytes);
        EXPECT_EQ(content.status, ContentStatus::Read) << seed.name << ": " << content.reason;
        EXPECT_FALSE(content.text.empty()) << seed.name;
    }
}

TEST(Seeds, AreNotesAndTheTextOfOne)
{
    for (const auto& seed : noteFileSeeds()) {
        auto package = NSFileWrapper::initWithSerializedRepresentation(seed.bytes);
        if (!package) {
            package = std::make_shared<NSFileWrapper>(NSFileType::Directory);
            package->addRegularFileWithContents({seed.bytes}, kNoteTextMember);
        }
        NSError error;
        const auto note = CVLNoteFile::initWithFileWrapper(*package, &error);
        ASSERT_TRUE(note) << seed.name << ": " << error.localizedDescription();
        EXPECT_EQ(note->noteText().length() == 0, seed.name == "empty");
    }
}

TEST(Seeds, AreOfficeDocumentsForTheReadersTheyName)
{
    constexpr std::array<ContentReader, 3> kReaders{readOfficeOpenXML, readOpenDocument, readEPUB};
    for (const auto& seed : officeDocumentSeeds()) {
        const auto choice = static_cast<unsigned char>(seed.bytes.front());
        const auto reader = choice < kReaders.size() ? kReaders.at(choice) : readXML;
        const auto content = readWith(reader, std::string_view(seed.bytes).substr(1));
        EXPECT_EQ(content.status, ContentStatus::Read) << seed.name << ": " << content.reason;
        EXPECT_FALSE(content.text.empty()) << seed.name;
    }
}

TEST(Seeds, AreTextsWithoutBytesThatMeanNothing)
{
    for (const auto& seed : textEncodingSeeds())
        EXPECT_EQ(decodedText(seed.bytes).find("\uFFFD"), std::string::npos) << seed.name;
}

TEST(Seeds, ArePropertyLists)
{
    for (const auto& seed : propertyListSeeds())
        EXPECT_TRUE(NSPropertyListSerialization::propertyListWithData(seed.bytes)) << seed.name;
}

TEST(Seeds, AreKeyedArchives)
{
    for (const auto& seed : keyedArchiveSeeds())
        EXPECT_TRUE(
            NSKeyedUnarchiver::unarchivedObjectOfClass(NSObjectClass, seed.bytes, foundationClasses()))
            << seed.name;
}

TEST(Seeds, AreRichText)
{
    for (const auto& seed : rtfSeeds()) {
        const auto text = NSAttributedStringDocumentFormats::initWithRTF({seed.bytes});
        EXPECT_TRUE(text && text->length() > 0) << seed.name;
    }
}
