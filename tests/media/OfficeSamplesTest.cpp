// Documents that other programs wrote: what must be found in them is found, what is locked or broken is told
// apart, and nothing crashes.

#include "platform/foundation/FileDescriptor.h"
#include "platform/media/ContentReader.h"
#include "platform/types/UTType.h"
#include "tests/support/SampleIndex.h"

#include <gtest/gtest.h>

#include <iostream>
#include <map>

namespace {

Content readSample(const Sample& sample)
{
    const auto file = FileDescriptor::openForReading(sample.path);
    const auto type = UTType::typeWithFilenameExtension(sample.file.substr(sample.file.rfind('.') + 1));
    ContentSource source;
    source.fileDescriptor = file.get();
    source.typeIdentifier = type ? type->identifier() : "";
    source.name = sample.file;
    return readContent(source);
}

SampleText textOf(const Content& content)
{
    auto text = content.text;
    for (const auto& field : content.fields)
        text.append("\n").append(field.value);
    return SampleText(text);
}

void expectVerdict(const Sample& sample, const Content& content)
{
    static const std::map<std::string, ContentStatus> kStatuses{
        {"must", ContentStatus::Read}, {"locked", ContentStatus::Locked}, {"broken", ContentStatus::Damaged}};
    const auto expected = kStatuses.find(sample.verdict);
    if (expected != kStatuses.end()) {
        EXPECT_EQ(content.status, expected->second) << sample.file << ": " << content.reason;
    }
    EXPECT_TRUE(content.cutNotes.empty()) << sample.file;
}

void expectSamplesRead(std::string_view category)
{
    const auto samples = samplesOf(category);
    if (samples.empty())
        GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/" << category;
    std::size_t softCount = 0;
    std::size_t softFound = 0;
    for (const auto& sample : samples) {
        const auto content = readSample(sample);
        expectVerdict(sample, content);
        const auto text = textOf(content);
        const bool isRequired = sample.verdict == "must";
        const auto missing = missingTerms(text, sample.mustFind);
        if (isRequired) {
            EXPECT_EQ(missing, std::vector<std::string>()) << sample.file;
        }
        softCount += sample.softFind.size() + (isRequired ? 0 : sample.mustFind.size());
        softFound += sample.softFind.size() - missingTerms(text, sample.softFind).size();
        softFound += isRequired ? 0 : sample.mustFind.size() - missing.size();
    }
    std::cout << category << ": " << softFound << " of " << softCount << " optional terms found\n";
}

} // namespace

TEST(OfficeSamples, ReadWordDocuments)
{
    expectSamplesRead("docx");
}

TEST(OfficeSamples, ReadOtherOfficeDocuments)
{
    expectSamplesRead("office");
}
