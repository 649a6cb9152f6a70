#include "platform/foundation/NSCoder.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSNull.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/foundation/NSSet.h"
#include "platform/foundation/NSUUID.h"
#include "platform/foundation/NSValue.h"
#include "tests/support/PropertyListBytes.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/transcript/ChildProcess.h"

#include <gtest/gtest.h>

// What is written is read here by an independent program that checks the form and shows the root as JSON.

namespace {

ChildProcess::Outcome checked(std::string_view archive)
{
    const TemporaryFolder folder;
    const auto path = folder.write("archive", archive);
    const std::string checker = CORVEL_SOURCE_DIR "/tests/tools/check_keyed_archive.py";
    return ChildProcess({"/usr/bin/env", "python3", checker, path}, folder.path()).wait();
}

std::string shown(const NSAny& root)
{
    const auto data = NSKeyedArchiver::archivedDataWithRootObject(root, true);
    if (!data)
        return "not archived";
    const auto outcome = checked(data->bytes);
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    return outcome.output;
}

class KeyedArchiveStructure : public testing::Test {
protected:
    void SetUp() override
    {
        const TemporaryFolder folder;
        if (ChildProcess({"/usr/bin/env", "python3", "-c", "import plistlib"}, folder.path()).wait().status
            != 0)
            GTEST_SKIP() << "no python3";
    }
};

/// Holds one object in each of the mutable forms.
class MutableForms final : public NSCoding {
public:
    [[nodiscard]] const NSClass& classForCoder() const override
    {
        static const NSClass object{"MutableForms", &NSObjectClass, nullptr};
        return object;
    }

    void encodeWithCoder(NSCoder& coder) const override
    {
        coder.encodeMutableString(u"text", "string");
        coder.encodeMutableData("AB", "data");
        const NSAny::Array members{1, 1};
        coder.encodeMutableArray(members, "array");
        coder.encodeObject(nullptr, "nothing");
        coder.encodeBool(true, "flag");
        coder.encodeFloat(0.5F, "float");
    }
};

} // namespace

TEST_F(KeyedArchiveStructure, HoldsForValues)
{
    const NSAny shared = NSAny::Array{u"x", 1, 1.5, true, NSDate{2.5}};
    EXPECT_EQ(
        shown(NSAny::Dictionary{{u"a", shared}, {u"b", shared}, {u"c", NSData{"\x01\xFF"}}, {u"d", u""}}),
        R"({"a": ["x", 1, 1.5, true, {"date": 2.5}], "b": ["x", 1, 1.5, true, {"date": 2.5}], )"
        R"("c": {"data": "01ff"}, "d": ""})");
    EXPECT_EQ(shown(u"h\u00E4 \U0001F44A"), R"("h\u00e4 \ud83d\udc4a")");
    EXPECT_EQ(shown(-9223372036854775807), "-9223372036854775807");
    EXPECT_EQ(shown(nullptr), "null");
}

TEST_F(KeyedArchiveStructure, HoldsForObjects)
{
    const NSUUID::Bytes bytes{0xAB};
    EXPECT_EQ(shown(NSAny::Array{NSNull::null(), std::make_shared<const NSUUID>(bytes)}),
              R"([{"$class": "NSNull"}, )"
              R"({"$class": "NSUUID", "NS.uuidbytes": {"data": "ab000000000000000000000000000000"}}])");
    EXPECT_EQ(shown(*NSURL::URLWithString("https://example.com/")),
              R"({"$class": "NSURL", "NS.base": null, "NS.relative": "https://example.com/"})");
    EXPECT_EQ(shown(std::make_shared<const NSOrderedSet>(NSAny::Array{2, 1})),
              R"({"$class": "NSOrderedSet", "NS.object.0": 2, "NS.object.1": 1})");
    EXPECT_EQ(shown(std::make_shared<const NSValue>(NSRect{{1, 2}, {3, 4.5}})),
              R"({"$class": "NSValue", "NS.rectval": "{{1, 2}, {3, 4.5}}", "NS.special": 3})");
    EXPECT_EQ(
        shown(std::make_shared<const NSValue>(NSRange{7, 8})),
        R"({"$class": "NSValue", "NS.rangeval.length": 8, "NS.rangeval.location": 7, "NS.special": 4})");
}

TEST_F(KeyedArchiveStructure, HoldsForMutableForms)
{
    EXPECT_EQ(shown(std::make_shared<const MutableForms>()),
              R"({"$class": "MutableForms", "array": [1, 1], "data": {"data": "4142"}, "flag": true, )"
              R"("float": 0.5, "nothing": null, "string": "text"})");
}

TEST_F(KeyedArchiveStructure, HoldsForManyObjects)
{
    NSAny::Array numbers;
    std::string expected;
    for (int number = 0; number < 70'000; ++number) {
        numbers.emplace_back(number);
        expected += (number == 0 ? "" : ", ") + std::to_string(number);
    }
    EXPECT_EQ(shown(numbers), "[" + expected + "]");
}

/// The program that checks must be able to say no.
TEST_F(KeyedArchiveStructure, IsRefusedWhereItIsBroken)
{
    const auto arrayClass = archiveClass({u"NSArray", u"NSObject"});
    const auto members = [](std::uint64_t uid) {
        return NSAny::Dictionary{{u"NS.objects", NSAny::Array{archiveUID(uid)}}, {u"$class", archiveUID(2)}};
    };
    EXPECT_EQ(checked(archiveBytes({members(3), arrayClass, u"text"})).status, 0);
    EXPECT_NE(checked(archiveBytes({members(9), arrayClass, u"text"})).status, 0);
    EXPECT_NE(checked(archiveBytes({members(1), arrayClass})).status, 0);
    EXPECT_NE(checked(archiveBytes({members(3), arrayClass, u"text", u"spare"})).status, 0);
    EXPECT_NE(checked(archiveBytes({members(3), archiveClass({u"NSArray"}), u"text"})).status, 0);
    EXPECT_NE(checked("bplist00").status, 0);
}
