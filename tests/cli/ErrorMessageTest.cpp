#include "cli/ErrorMessage.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

TEST(ErrorMessage, IsTheDescription)
{
    EXPECT_EQ(errorMessage(commandError(CommandError::NotAFile, "a pipe")), "a pipe");
}

TEST(ErrorMessage, NamesTheUnderlyingErrors)
{
    const auto cause = std::make_shared<const NSError>(
        "NSPOSIXErrorDomain", 5,
        std::map<std::string, NSErrorValue>{{std::string(NSLocalizedDescriptionKey), "disk on fire"}});
    EXPECT_EQ(errorMessage(NSError("CVLIndexingError", 10003, {{std::string(NSUnderlyingErrorKey), cause}})),
              "it could not be added to the index: disk on fire");
}

TEST(ErrorMessage, AddsTheReasonThatTheServiceGives)
{
    EXPECT_EQ(errorMessage(NSError("CVLIndexingError", 10003,
                                   {{std::string(NSLocalizedDescriptionKey), "disk is full"}})),
              "it could not be added to the index: disk is full");
}

TEST(ErrorMessage, OfAnUnknownCodeIsStillAMessage)
{
    EXPECT_NE(errorMessage(NSError("CVLIndexingError", 7)), "");
}

TEST(ErrorMessage, OfAFileNamesItOnce)
{
    EXPECT_EQ(errorReason(commandError(CommandError::NotAFile, "/x/a b: gone"), "/x/a b"), "gone");
    EXPECT_EQ(errorReason(commandError(CommandError::NotAFile, "file:///x/a%20b: gone"), "/x/a b"), "gone");
    EXPECT_EQ(errorReason(commandError(CommandError::NotAFile, "/x/other: gone"), "/x/a b"),
              "/x/other: gone");
}

} // namespace
