#include "fuzz/Seeds.h"
#include "platform/foundation/NSFileWrapper.h"

#include <stdexcept>

namespace {

std::string serialized(const NSFileWrapper& wrapper)
{
    auto data = wrapper.serializedRepresentation();
    if (!data)
        throw std::runtime_error("a file wrapper cannot be serialised");
    return std::move(data->bytes);
}

NSFileWrapper::Ref folderWithEverything()
{
    auto inner = NSFileWrapper::initDirectoryWithFileWrappers({});
    inner->setPreferredFilename(u"inner");
    inner->addRegularFileWithContents({"deep"}, u"caf\u00E9.txt");
    auto link = NSFileWrapper::initSymbolicLinkWithDestinationURL(NSURL::URLWithString("../x").value());
    link->setPreferredFilename(u"link");
    auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->setPreferredFilename(u"Folder");
    folder->addFileWrapper(inner);
    folder->addFileWrapper(link);
    folder->addRegularFileWithContents({"one"}, u"a");
    folder->addRegularFileWithContents({"two"}, u"a");
    return folder;
}

} // namespace

std::vector<Seed> fileWrapperSeeds()
{
    const auto placeholder = NSFileWrapper::initRegularFileWithContents({});
    placeholder->setPreferredFilename(u"image.png");
    const auto nameless = NSFileWrapper::initRegularFileWithContents({"contents"});
    return {
        {"placeholder", serialized(*placeholder)},
        {"nameless", serialized(*nameless)},
        {"folder", serialized(*folderWithEverything())},
    };
}
