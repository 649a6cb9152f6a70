#pragma once

#include "platform/foundation/FileWrapperWriter.h"
#include "tests/support/PackageFaults.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

/// Everything below a path, by relative path: contents of files, "->" and destination of links, "/" for
/// folders.
inline std::map<std::string, std::string> tree(const fs::path& root)
{
    std::map<std::string, std::string> found;
    const auto describe = [](const fs::path& path) -> std::string {
        if (fs::is_symlink(path))
            return "->" + fs::read_symlink(path).native();
        if (fs::is_directory(path))
            return "/";
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    };
    if (!fs::exists(fs::symlink_status(root)))
        return found;
    found[""] = describe(root);
    if (found[""] != "/")
        return found;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        found[entry.path().lexically_relative(root).native()] = describe(entry.path());
    return found;
}

using Tree = std::map<std::string, std::string>;

inline NSFileWrapper::Ref newPackage()
{
    auto inner = NSFileWrapper::initDirectoryWithFileWrappers({});
    inner->setPreferredFilename(u"inner");
    inner->addRegularFileWithContents({"deep"}, u"b");
    auto link = NSFileWrapper::initSymbolicLinkWithDestinationURL(NSURL::URLWithString("../x").value());
    link->setPreferredFilename(u"link");
    auto package = NSFileWrapper::initDirectoryWithFileWrappers({});
    package->addRegularFileWithContents({"new contents"}, u"a");
    package->addFileWrapper(inner);
    package->addFileWrapper(link);
    return package;
}

inline const Tree kNewPackage{
    {"", "/"}, {"a", "new contents"}, {"inner", "/"}, {"inner/b", "deep"}, {"link", "->../x"}};

inline void makeNothing(const TemporaryFolder& /*folder*/) { }

inline void makeFile(const TemporaryFolder& folder)
{
    folder.write("Place", "old file");
}

inline void makePackage(const TemporaryFolder& folder)
{
    folder.write("Place/a", "old contents");
    folder.write("Place/gone/c", "old too");
}

inline std::size_t entryCount(const fs::path& folder)
{
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

inline bool writeWith(PackageOperations& operations, NSFileWrapper& wrapper, const NSURL& url,
                      unsigned options = NSFileWrapperWritingAtomic, NSError* error = nullptr)
{
    return FileWrapperWriter(operations).write(wrapper, url, options, error);
}

/// Runs the write in a child that is killed before its n-th operation; false once it runs to its end.
inline bool killBeforeCall(std::size_t call, const NSURL& url, bool knowsRenameKinds)
{
    const auto child = ::fork();
    if (child == 0) {
        PackageFaults operations(call, PackageFaults::Fault::Kill);
        if (!knowsRenameKinds)
            operations.withoutRenameKinds();
        ::_exit(writeWith(operations, *newPackage(), url) ? 0 : 1);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    if (WIFSIGNALED(status))
        return true;
    EXPECT_EQ(WEXITSTATUS(status), 0);
    return false;
}
