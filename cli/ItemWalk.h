#pragma once

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"

#include <string>
#include <string_view>

struct ItemWalkOptions {
    /// Whether files and folders whose name begins with a dot are walked too.
    bool includesHidden = false;
    /// The index that is being filled; neither it nor SQLite's files beside it are items.
    NSURL indexURL = NSURL::fileURLWithPath("/");
};

/// Whom a walk tells what it finds, as it finds it.
class ItemVisitor {
public:
    ItemVisitor() = default;
    ItemVisitor(const ItemVisitor&) = delete;
    ItemVisitor& operator=(const ItemVisitor&) = delete;
    virtual ~ItemVisitor() = default;

    /// A file, or a package: a folder that is one item.
    virtual void visitItem(const std::string& path) = 0;
    /// A pipe, socket or device below a folder, or the index itself when it is named; `why` completes
    /// "skipped: ".
    virtual void visitSkipped(const std::string& path, std::string_view why) = 0;
    /// A folder that could not be read, in whole or in part, or a named path that is neither file nor folder.
    virtual void visitFailure(const std::string& path, const NSError& error) = 0;
};

/// Finds the items at and below `path`, in the order in which the file system gives them. What is named
/// itself is taken as it is, a hidden file or a link included, and when it is not there it is an item all the
/// same: its request tells. Below it, links are left out, so that no walk goes in circles. Memory does not
/// grow with the number of files.
void walkItems(const std::string& path, const ItemWalkOptions& options, ItemVisitor& visitor);

/// Whether a folder of this name is one item.
[[nodiscard]] bool isPackageName(std::string_view name);
