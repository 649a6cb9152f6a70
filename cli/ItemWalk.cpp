#include "cli/ItemWalk.h"

#include "cli/ErrorMessage.h"
#include "platform/types/UTType.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kNoteType = "com.tessel.corvel.note";
// Each level holds a folder open.
constexpr std::size_t kMaximumDepth = 200;

std::string joined(const std::string& folder, const std::string& name)
{
    return folder.ends_with('/') ? folder + name : folder + '/' + name;
}

NSError posixError(const std::error_code& failure)
{
    return NSError(NSPOSIXErrorDomain, failure.value(),
                   {{std::string(NSLocalizedDescriptionKey), failure.message()}});
}

// SQLite's files lie beside what a link leads to.
fs::path realPath(const fs::path& path)
{
    std::error_code failure;
    auto real = fs::canonical(path, failure);
    return failure ? path : real;
}

class Walk {
public:
    Walk(const ItemWalkOptions& options, ItemVisitor& visitor)
        : m_options(options)
        , m_visitor(visitor)
        , m_indexPath(realPath(options.indexURL.path()))
    {
    }

    void visitNamed(const std::string& path);

private:
    struct Level {
        std::string path;
        fs::directory_iterator next;
    };

    void enter(const std::string& path);
    void visitNext();
    void visitEntry(const std::string& path, const fs::directory_entry& entry);
    [[nodiscard]] bool isOfIndex(const std::string& path) const;

    const ItemWalkOptions& m_options;
    ItemVisitor& m_visitor;
    fs::path m_indexPath;
    std::vector<Level> m_levels;
};

void Walk::visitNamed(const std::string& path)
{
    std::error_code failure;
    const auto status = fs::status(path, failure);
    if (fs::is_directory(status) && !isPackageName(NSURL::fileURLWithPath(path).lastPathComponent()))
        enter(path);
    else if (fs::is_other(status))
        m_visitor.visitFailure(path, commandError(CommandError::NotAFile, "neither a file nor a folder"));
    else if (isOfIndex(path))
        m_visitor.visitSkipped(path, "part of the index");
    else
        m_visitor.visitItem(path);
    while (!m_levels.empty())
        visitNext();
}

void Walk::enter(const std::string& path)
{
    if (m_levels.size() == kMaximumDepth) {
        const auto tooDeep = std::make_error_code(std::errc::filename_too_long);
        m_visitor.visitFailure(
            path,
            NSError(NSPOSIXErrorDomain, tooDeep.value(),
                    {{std::string(NSLocalizedDescriptionKey), "too many folders within folders"}}));
        return;
    }
    std::error_code failure;
    fs::directory_iterator first(path, failure);
    if (failure)
        m_visitor.visitFailure(path, posixError(failure));
    else
        m_levels.push_back({path, std::move(first)});
}

void Walk::visitNext()
{
    auto& level = m_levels.back();
    if (level.next == fs::directory_iterator()) {
        m_levels.pop_back();
        return;
    }
    const auto entry = *level.next;
    std::error_code failure;
    level.next.increment(failure);
    if (failure)
        m_visitor.visitFailure(level.path, posixError(failure));
    const auto name = entry.path().filename().native();
    if (m_options.includesHidden || !name.starts_with('.'))
        visitEntry(joined(level.path, name), entry);
}

void Walk::visitEntry(const std::string& path, const fs::directory_entry& entry)
{
    std::error_code failure;
    const auto status = entry.symlink_status(failure);
    if (fs::is_directory(status) && !isPackageName(entry.path().filename().native()))
        enter(path);
    else if (fs::is_directory(status) || (fs::is_regular_file(status) && !isOfIndex(path)))
        m_visitor.visitItem(path);
    else if (fs::is_other(status))
        m_visitor.visitSkipped(path, "neither a file nor a folder");
    else if (failure && status.type() != fs::file_type::not_found)
        m_visitor.visitFailure(path, posixError(failure));
}

bool Walk::isOfIndex(const std::string& path) const
{
    constexpr std::array<std::string_view, 4> kSuffixes = {"", "-wal", "-shm", "-journal"};
    const fs::path item(path);
    const auto name = item.filename().native();
    const auto indexName = m_indexPath.filename().native();
    if (!name.starts_with(indexName))
        return false;
    const auto suffix = std::string_view(name).substr(indexName.size());
    const auto folder = item.has_parent_path() ? item.parent_path() : fs::path(".");
    std::error_code ignored; // A folder that cannot be looked up holds nothing of the index.
    return std::find(kSuffixes.begin(), kSuffixes.end(), suffix) != kSuffixes.end()
        && fs::equivalent(folder, m_indexPath.parent_path(), ignored);
}

} // namespace

void walkItems(const std::string& path, const ItemWalkOptions& options, ItemVisitor& visitor)
{
    Walk(options, visitor).visitNamed(path);
}

bool isPackageName(std::string_view name)
{
    const auto dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0)
        return false;
    const auto type = UTType::typeWithFilenameExtension(name.substr(dot + 1));
    return type && (type->identifier() == kUTTypeRTFD || type->identifier() == kNoteType);
}
