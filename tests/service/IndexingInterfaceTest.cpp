#include "service/IndexingInterface.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::Field;

TEST(IndexingInterface, OffersTheFourMethodsInTheOrderOfTheProtocol)
{
    EXPECT_THAT(indexingInterface().methods(),
                ElementsAre(Field(&NSXPCMethod::name, "setCustomFolderBookmarkData"),
                            Field(&NSXPCMethod::name, "indexItemWithIdentifier"),
                            Field(&NSXPCMethod::name, "moveFileURL"),
                            Field(&NSXPCMethod::name, "removeFileURLs")));
}

TEST(IndexingInterface, RepliesToAllButTheCustomFolder)
{
    EXPECT_THAT(indexingInterface().methods(),
                ElementsAre(Field(&NSXPCMethod::hasReply, false), Field(&NSXPCMethod::hasReply, true),
                            Field(&NSXPCMethod::hasReply, true), Field(&NSXPCMethod::hasReply, true)));
}
