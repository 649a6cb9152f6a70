#include "platform/foundation/FileWrapperSerialization.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <utility>
#include <vector>

namespace {

std::string u32(std::size_t value)
{
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>((value >> shift) & 0xFFU);
    return bytes;
}

std::string dataRecord(const std::string& bytes)
{
    return u32(1) + u32(bytes.size()) + bytes;
}

using NamedRecords = std::vector<std::pair<std::string, std::string>>;

std::string dictionaryRecord(const NamedRecords& entries)
{
    std::string names;
    std::string sizes;
    std::string records;
    for (const auto& [name, record] : entries) {
        names += u32(name.size()) + name;
        sizes += u32(record.size());
        records += record;
    }
    return u32(3) + u32(entries.size()) + names + sizes + records;
}

std::string serialized(const NamedRecords& entries)
{
    return "rtfd" + u32(0) + dictionaryRecord(entries);
}

/// The attribute record of a file with permissions 0644.
const std::string kAttributes = u32(1) + u32(2) + ".." + u32(16) + u32(0) + u32(420) + u32(2) + u32(1);

NSFileWrapper::Ref read(const std::string& bytes)
{
    return NSFileWrapper::initWithSerializedRepresentation(bytes);
}

std::string written(const NSFileWrapper& wrapper)
{
    NSError error;
    const auto data = wrapper.serializedRepresentation(&error);
    EXPECT_TRUE(data) << error.localizedDescription();
    return data ? data->bytes : std::string();
}

void expectSame(const NSFileWrapper& one, const NSFileWrapper& other)
{
    EXPECT_EQ(one.fileType(), other.fileType());
    EXPECT_EQ(one.preferredFilename(), other.preferredFilename());
    EXPECT_EQ(one.symbolicLinkDestination(), other.symbolicLinkDestination());
    if (one.isRegularFile() && other.isRegularFile()) {
        EXPECT_EQ(one.regularFileContents()->bytes, other.regularFileContents()->bytes);
    }
    ASSERT_EQ(one.fileWrappers().size(), other.fileWrappers().size());
    for (const auto& [key, member] : one.fileWrappers()) {
        const auto counterpart = other.fileWrapperForKey(key);
        ASSERT_NE(counterpart, nullptr);
        expectSame(*member, *counterpart);
    }
}

} // namespace

TEST(FileWrapperSerialization, WritesANamedFileAsThePlatformDoes)
{
    const auto wrapper = NSFileWrapper::initRegularFileWithContents({"contents"});
    wrapper->setPreferredFilename(u"a.txt");
    EXPECT_EQ(written(*wrapper),
              serialized({{"..", dataRecord("contents")},
                          {"__@PreferredName@__", dataRecord("a.txt")},
                          {"__@UTF8PreferredName@__", dataRecord("a.txt")},
                          {".", dataRecord(kAttributes)}}));
}

TEST(FileWrapperSerialization, TakesTheStatedBytesForAnEmptyFile)
{
    const auto wrapper = NSFileWrapper::initRegularFileWithContents({});
    wrapper->setPreferredFilename(u"image.png");
    EXPECT_EQ(written(*wrapper).size(), 155U + 2 * 9);
}

TEST(FileWrapperSerialization, WritesThePermissionsThatAFileHas)
{
    const auto wrapper = NSFileWrapper::initRegularFileWithContents({});
    NSFileAttributes attributes;
    attributes.posixPermissions = 0600;
    wrapper->setFileAttributes(attributes);
    EXPECT_EQ(read(written(*wrapper))->fileAttributes().posixPermissions, 0600U);
    wrapper->setFileAttributes({});
    EXPECT_EQ(read(written(*wrapper))->fileAttributes().posixPermissions, 0644U);
}

TEST(FileWrapperSerialization, PrefersTheNameInUTF8)
{
    const auto wrapper = read(serialized({{"__@UTF8PreferredName@__", dataRecord("caf\xC3\xA9")},
                                          {"__@PreferredName@__", dataRecord("caf_")},
                                          {"..", dataRecord("x")}}));
    ASSERT_NE(wrapper, nullptr);
    EXPECT_EQ(wrapper->preferredFilename(), u"caf\u00E9");
    const auto bytes = written(*wrapper);
    EXPECT_NE(bytes.find("caf_"), std::string::npos);
    EXPECT_EQ(read(bytes)->preferredFilename(), u"caf\u00E9");
}

TEST(FileWrapperSerialization, ReadsAnyOrderAndMissingEntries)
{
    const auto alone = read(serialized({{"..", dataRecord("x")}}));
    ASSERT_NE(alone, nullptr);
    EXPECT_EQ(alone->regularFileContents()->bytes, "x");
    EXPECT_EQ(alone->preferredFilename(), std::nullopt);
    const auto old = read(serialized(
        {{".", dataRecord("odd")}, {"__@PreferredName@__", dataRecord("old")}, {"..", dataRecord("")}}));
    ASSERT_NE(old, nullptr);
    EXPECT_EQ(old->preferredFilename(), u"old");
    EXPECT_EQ(old->fileAttributes().posixPermissions, std::nullopt);
}

TEST(FileWrapperSerialization, ReadsPaddedContents)
{
    const auto padded = u32(1) + u32(0x80000000U) + u32(3) + u32(5) + std::string(5, '\0') + "abc";
    const auto wrapper = read(serialized({{"..", padded}}));
    ASSERT_NE(wrapper, nullptr);
    EXPECT_EQ(wrapper->regularFileContents()->bytes, "abc");
}

TEST(FileWrapperSerialization, ReadsFoldersOfFilesAndFolders)
{
    const auto inner = dictionaryRecord({{"deep", dataRecord("2")}});
    const auto named
        = dictionaryRecord({{"..", dataRecord("3")}, {"__@UTF8PreferredName@__", dataRecord("wanted")}});
    const auto wrapper = read(serialized({{"plain", dataRecord("1")},
                                          {"folder", inner},
                                          {"1__#$!@%!#__wanted", named},
                                          {"__@UTF8PreferredName@__", dataRecord("top")}}));
    ASSERT_NE(wrapper, nullptr);
    EXPECT_TRUE(wrapper->isDirectory());
    EXPECT_EQ(wrapper->preferredFilename(), u"top");
    ASSERT_EQ(wrapper->fileWrappers().size(), 3U);
    EXPECT_EQ(wrapper->fileWrapperForKey(u"plain")->preferredFilename(), u"plain");
    EXPECT_EQ(wrapper->fileWrapperForKey(u"1__#$!@%!#__wanted")->preferredFilename(), u"wanted");
    EXPECT_EQ(wrapper->fileWrapperForKey(u"folder")->fileWrapperForKey(u"deep")->regularFileContents()->bytes,
              "2");
}

TEST(FileWrapperSerialization, GivesEveryKindBack)
{
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->setPreferredFilename(u"Top");
    folder->addRegularFileWithContents({std::string("\0\1\2", 3)}, u"a");
    folder->addRegularFileWithContents({}, u"a");
    folder->addRegularFileWithContents({"x"}, std::u16string{u'b', 0xDCFF});
    const auto link = NSFileWrapper::initSymbolicLinkWithDestinationURL(NSURL::URLWithString("../x").value());
    link->setPreferredFilename(u"link");
    folder->addFileWrapper(link);
    const auto inner = NSFileWrapper::initDirectoryWithFileWrappers({});
    inner->setPreferredFilename(u"inner");
    inner->addRegularFileWithContents({"deep"}, u"caf\u00E9");
    folder->addFileWrapper(inner);
    const auto back = read(written(*folder));
    ASSERT_NE(back, nullptr);
    expectSame(*folder, *back);
}

TEST(FileWrapperSerialization, RefusesMemberNamesThatLeaveTheFolder)
{
    for (const std::string name : {"../evil", "a/b", "/", ""})
        EXPECT_EQ(read(serialized({{name, dataRecord("x")}})), nullptr) << name;
    EXPECT_EQ(read(serialized({{std::string("a\0b", 3), dataRecord("x")}})), nullptr);
}

TEST(FileWrapperSerialization, DropsPreferredNamesThatLeaveTheFolder)
{
    const auto wrapper
        = read(serialized({{"..", dataRecord("x")}, {"__@UTF8PreferredName@__", dataRecord("../../evil")}}));
    ASSERT_NE(wrapper, nullptr);
    EXPECT_EQ(wrapper->preferredFilename(), std::nullopt);
}

TEST(FileWrapperSerialization, RefusesTwoMembersOfOneName)
{
    EXPECT_EQ(read(serialized({{"a", dataRecord("1")}, {"a", dataRecord("2")}})), nullptr);
}

TEST(FileWrapperSerialization, RefusesAnythingCutShort)
{
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->setPreferredFilename(u"Top");
    folder->addRegularFileWithContents({"contents"}, u"a");
    const auto whole = written(*folder);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        NSError error;
        EXPECT_EQ(FileWrapperSerialization::read(whole.substr(0, length), &error), nullptr) << length;
        EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
        EXPECT_EQ(error.code(), 259);
    }
}

TEST(FileWrapperSerialization, SurvivesEveryByteChanged)
{
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->addRegularFileWithContents({"contents"}, u"a");
    const auto whole = written(*folder);
    for (std::size_t offset = 0; offset < whole.size(); ++offset) {
        for (const char byte : {'\0', '\1', '\x7F', '\x80', '\xFF'}) {
            auto bytes = whole;
            bytes[offset] = byte;
            const auto wrapper = read(bytes);
            // Whatever it is now, it can be written.
            EXPECT_TRUE(!wrapper || !written(*wrapper).empty());
        }
    }
}

TEST(FileWrapperSerialization, RefusesCountsThatTheBytesCannotHold)
{
    EXPECT_EQ(read("rtfd" + u32(0) + u32(3) + u32(0xFFFFFFFFU)), nullptr);
    EXPECT_EQ(read("rtfd" + u32(0) + u32(3) + u32(1) + u32(0xFFFFFFFFU) + "a"), nullptr);
    EXPECT_EQ(read("rtfd" + u32(1) + u32(3) + u32(0)), nullptr);
    EXPECT_EQ(read("RTFD" + u32(0) + u32(3) + u32(0)), nullptr);
    EXPECT_EQ(read("rtfd" + u32(0) + u32(1) + u32(0)), nullptr);
    EXPECT_EQ(read(""), nullptr);
}

TEST(FileWrapperSerialization, LimitsTheDepthOfFolders)
{
    const auto nested = [](std::size_t depth) {
        std::string record = dictionaryRecord({});
        for (std::size_t level = 0; level < depth; ++level)
            record = dictionaryRecord({{"f", record}});
        return "rtfd" + u32(0) + record;
    };
    EXPECT_NE(read(nested(NSFileWrapper::kMostDepth)), nullptr);
    EXPECT_EQ(read(nested(NSFileWrapper::kMostDepth + 1)), nullptr);
    EXPECT_EQ(read(nested(10'000)), nullptr);
}

TEST(FileWrapperSerialization, WritesWhateverItReadsAtAnyDepth)
{
    for (std::size_t depth = 0; depth <= NSFileWrapper::kMostDepth + 1; ++depth) {
        std::string record = dictionaryRecord({{"file", dataRecord("x")}});
        for (std::size_t level = 0; level < depth; ++level)
            record = dictionaryRecord({{"f", record}});
        const auto wrapper = read("rtfd" + u32(0) + record);
        EXPECT_EQ(wrapper != nullptr, depth < NSFileWrapper::kMostDepth);
        EXPECT_TRUE(!wrapper || wrapper->serializedRepresentation());
    }
}

TEST(FileWrapperSerialization, SaysWhatItCannotWrite)
{
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->addRegularFileWithContents({}, u"__@PreferredName@__");
    NSError error;
    EXPECT_EQ(folder->serializedRepresentation(&error), std::nullopt);
    EXPECT_EQ(error.domain(), NSPOSIXErrorDomain);
    EXPECT_EQ(error.code(), EINVAL);

    auto deep = NSFileWrapper::initDirectoryWithFileWrappers({});
    for (std::size_t level = 0; level <= NSFileWrapper::kMostDepth; ++level)
        deep = NSFileWrapper::initDirectoryWithFileWrappers({{u"f", deep}});
    EXPECT_EQ(deep->serializedRepresentation(&error), std::nullopt);
    EXPECT_EQ(error.code(), ELOOP);
}
