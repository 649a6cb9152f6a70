#include "platform/search/EmbeddedIndex.h"

#include "platform/foundation/NSLog.h"
#include "platform/foundation/Unicode.h"
#include "platform/media/ContentLimits.h"
#include "platform/search/FileText.h"
#include "platform/search/IndexCheck.h"
#include "platform/search/IndexCompaction.h"
#include "platform/search/IndexSearch.h"

#include <algorithm>
#include <utility>

namespace {

// The coarsest step of a file system's clock that we allow for.
constexpr std::chrono::milliseconds kClockStep{10};

// A name that would lead a path elsewhere than to a file of that name.
bool isPlainName(std::string_view name)
{
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string_view::npos
        && name.find('\0') == std::string_view::npos;
}

bool namesOneFile(const SKDocumentRef& document)
{
    for (const auto* step = document.get(); step; step = step->parent().get()) {
        if (!isPlainName(step->name().value_or(std::string())))
            return false;
    }
    return true;
}

// What is indexed of a text: whole characters, no NULs, and no more than an index keeps.
std::string_view indexableText(std::string_view text, std::string& storage)
{
    constexpr std::size_t kMostBytes = ContentLimits().textBytes;
    const auto kept = prefixAtCharacterBorder(text, kMostBytes);
    if (kept.size() < text.size())
        NSLog("A text of {} bytes was cut at {} bytes", text.size(), kept.size());
    if (kept.find('\0') == std::string_view::npos && isValidUTF8(kept))
        return kept;
    storage = validUTF8(kept);
    std::replace(storage.begin(), storage.end(), '\0', ' ');
    return prefixAtCharacterBorder(storage, kMostBytes);
}

class ChildIterator final : public SKIndexDocumentIterator {
public:
    ChildIterator(SKDocumentRef parent, std::vector<DocumentTree::Node> children)
        : m_parent(std::move(parent))
        , m_children(std::move(children))
    {
    }

    SKDocumentRef copyNext() override
    {
        if (m_next >= m_children.size())
            return nullptr;
        return SKDocument::createWithPrefix(m_parent->schemePrefix(), m_parent, m_children[m_next++].name);
    }

private:
    SKDocumentRef m_parent;
    std::vector<DocumentTree::Node> m_children;
    std::size_t m_next = 0;
};

} // namespace

std::unique_ptr<EmbeddedIndex> EmbeddedIndex::open(const NSURL& url, SKIndexAccess access,
                                                   std::chrono::milliseconds busyTimeout, NSError* error)
{
    auto database = IndexFile::open(url.path(), access, busyTimeout, error);
    if (!database)
        return nullptr;
    try {
        // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the constructor is private; the owner takes it at
        // once
        return std::unique_ptr<EmbeddedIndex>(
            new EmbeddedIndex(url.path(), std::move(database), busyTimeout));
    } catch (const SQLiteError& failure) {
        setError(error, IndexFile::error(IndexFile::Error::Damaged, url.path() + ": " + failure.what()));
        return nullptr;
    }
}

EmbeddedIndex::EmbeddedIndex(std::string path, std::unique_ptr<SQLiteDatabase> database,
                             std::chrono::milliseconds busyTimeout)
    : m_path(std::move(path))
    , m_busyTimeout(busyTimeout)
    , m_openedAt(std::chrono::system_clock::now())
    , m_database(std::move(database))
    , m_tree(std::make_unique<DocumentTree>(*m_database))
    , m_store(std::make_unique<DocumentStore>(*m_database))
{
}

EmbeddedIndex::~EmbeddedIndex()
{
    rollBack();
}

void EmbeddedIndex::rollBack() noexcept
{
    try {
        if (m_database->isInTransaction())
            m_database->execute("ROLLBACK");
    } catch (const std::exception& exception) {
        NSLogLine(exception.what()); // Closing the connection rolls back in any case.
    }
    m_turn = WriterTurn();
}

bool EmbeddedIndex::begin()
{
    if (m_database->isInTransaction())
        return true;
    m_turn = WriterTurn::take(m_path, m_busyTimeout);
    if (!m_turn.isTaken())
        return false;
    m_database->execute("BEGIN IMMEDIATE");
    return true;
}

bool EmbeddedIndex::change(const std::function<bool()>& change)
{
    try {
        if (begin())
            return change();
    } catch (const SQLiteError& error) {
        rollBack();
        if (!error.isBusy())
            throw;
    } catch (...) {
        rollBack();
        throw;
    }
    NSLog("Gave up waiting for another writer of {}", m_path);
    return false;
}

std::optional<DocumentTree::Node> EmbeddedIndex::documentNode(const SKDocumentRef& document) const
{
    auto node = document ? m_tree->find(document) : std::nullopt;
    return node && node->document ? node : std::nullopt;
}

// A file that changed after we opened may have changed after its text was read: it is left without a stamp,
// and counts as changed the next time.
std::optional<SKFileStamp> EmbeddedIndex::settledStamp(const SKDocumentRef& document) const
{
    const auto stamp = namesOneFile(document) ? SKFileStamp::stampOfFile(document->URL()) : std::nullopt;
    const auto opened
        = std::chrono::duration_cast<std::chrono::nanoseconds>((m_openedAt - kClockStep).time_since_epoch());
    return stamp && stamp->modificationTime < opened.count() ? stamp : std::nullopt;
}

bool EmbeddedIndex::put(const SKDocumentRef& document, std::string_view text, SKReplace replace,
                        const std::optional<SKFileStamp>& stamp)
{
    std::string storage;
    const auto indexable = indexableText(text, storage);
    const auto name = document->name().value_or(std::string());
    const DocumentContent content(indexable, stamp);
    m_store->prepareToAdd();
    return change([&] {
        const auto node = m_tree->ensure(document);
        if (!node.document)
            m_tree->setDocument(node.id, m_store->add(node.id, name, content));
        else if (replace == SKReplace::Yes)
            m_store->replace(*node.document, name, content);
        else
            return false;
        return true;
    });
}

bool EmbeddedIndex::addDocumentWithText(const SKDocumentRef& document, std::string_view text,
                                        SKReplace replace)
{
    return document && put(document, text, replace, settledStamp(document));
}

bool EmbeddedIndex::addDocument(const SKDocumentRef& document, const std::optional<std::string>& mimeTypeHint,
                                SKReplace replace)
{
    if (!document || !namesOneFile(document))
        return false;
    const auto text = textOfFile(document->URL(), mimeTypeHint);
    return text && put(document, *text, replace, settledStamp(document));
}

void EmbeddedIndex::removeSubtree(NodeID top)
{
    for (const auto& node : m_tree->subtree(top)) {
        if (node.document)
            m_store->remove(*node.document, node.name);
        m_tree->remove(node.id);
    }
}

bool EmbeddedIndex::removeDocument(const SKDocumentRef& document)
{
    if (!document || !m_tree->find(document))
        return false;
    bool found = false;
    const bool done = change([&] {
        const auto node = m_tree->find(document);
        found = node.has_value();
        if (found) {
            removeSubtree(node->id);
            m_tree->prune(node->parent);
        }
        return true;
    });
    // Nobody looks twice at what could not be removed, as it may not have been there.
    if (!done)
        throw SKIndexException("another writer did not finish in time");
    return found;
}

bool EmbeddedIndex::place(const DocumentTree::Node& node, NodeID parent, std::string_view name)
{
    if (node.parent == parent && node.name == name)
        return true;
    // What is replaced may hold what moves, which therefore steps out of the tree first.
    if (const auto replaced = m_tree->child(parent, name)) {
        m_tree->setPlace(node.id, DocumentTree::kRoot, {});
        removeSubtree(replaced->id);
    }
    if (node.document && node.name != name)
        m_store->rename(*node.document, node.name, name);
    m_tree->setPlace(node.id, parent, name);
    m_tree->prune(node.parent);
    return true;
}

bool EmbeddedIndex::renameDocument(const SKDocumentRef& document, std::string_view newName)
{
    if (!document || !isPlainName(newName))
        return false;
    return change([&] {
        const auto node = m_tree->find(document);
        return node && place(*node, node->parent, newName);
    });
}

bool EmbeddedIndex::moveDocument(const SKDocumentRef& document, const SKDocumentRef& newParent)
{
    if (!document || !newParent)
        return false;
    return change([&] {
        const auto node = m_tree->find(document);
        if (!node)
            return false;
        // Also beneath folders that are not in the tree yet, and would be made within what moves.
        for (const auto* step = &newParent; *step; step = &(*step)->parent()) {
            const auto above = m_tree->find(*step);
            if (above && above->id == node->id)
                return false;
        }
        return place(*node, m_tree->ensure(newParent).id, node->name);
    });
}

bool EmbeddedIndex::flush()
{
    if (!m_database->isInTransaction())
        return true;
    try {
        m_database->execute("COMMIT");
        // The next writer need not wait for the disk: what it writes stands behind this in the log, and
        // syncing either makes this durable.
        m_turn = WriterTurn();
        m_database->syncLog();
        return true;
    } catch (const SQLiteError& error) {
        NSLog("Couldn't flush {}: {}", m_path, error.what());
        rollBack();
        return false;
    }
}

bool EmbeddedIndex::compact()
{
    if (!flush())
        return false;
    try {
        const bool renumbered = change([&] {
            renumberDocuments(*m_database);
            return true;
        });
        if (!renumbered || !flush())
            return false;
    } catch (const SKIndexException& exception) {
        NSLog("Couldn't compact {}: {}", m_path, exception.what());
        return false;
    }
    shrinkFile(*m_database, m_path);
    return true;
}

std::int64_t EmbeddedIndex::documentCount() const
{
    return m_database->integer("SELECT count(*) FROM document").value_or(0);
}

SKDocumentID EmbeddedIndex::maximumDocumentID() const
{
    return m_database->integer("SELECT seq FROM sqlite_sequence WHERE name = 'document'").value_or(0);
}

SKDocumentState EmbeddedIndex::documentState(const SKDocumentRef& document) const
{
    return documentNode(document) ? SKDocumentState::Indexed : SKDocumentState::NotIndexed;
}

std::optional<SKDocumentID> EmbeddedIndex::documentID(const SKDocumentRef& document) const
{
    const auto node = documentNode(document);
    return node ? node->document : std::nullopt;
}

SKDocumentRef EmbeddedIndex::copyDocumentForDocumentID(SKDocumentID identifier) const
{
    const auto node = m_store->node(identifier);
    return node ? m_tree->documentOfNode(*node) : nullptr;
}

std::optional<std::string> EmbeddedIndex::copyDocumentText(const SKDocumentRef& document) const
{
    const auto node = documentNode(document);
    return node ? std::optional(m_store->text(*node->document)) : std::nullopt;
}

std::optional<SKFileStamp> EmbeddedIndex::documentFileStamp(const SKDocumentRef& document) const
{
    const auto node = documentNode(document);
    return node ? m_store->stamp(*node->document) : std::nullopt;
}

std::unique_ptr<SKIndexDocumentIterator> EmbeddedIndex::documentIterator(const SKDocumentRef& parent) const
{
    const auto node = parent ? m_tree->find(parent) : std::nullopt;
    return std::make_unique<ChildIterator>(
        parent, node ? m_tree->childDocuments(node->id) : std::vector<DocumentTree::Node>());
}

bool EmbeddedIndex::search(std::string_view query, const SKSearchOptions& options,
                           std::vector<SKSearchHit>& hits, NSError* error) const
{
    return searchIndex(*m_database, *m_tree, query, options, hits, error);
}

std::vector<std::string> EmbeddedIndex::check() const
{
    return findingsOfCheck(m_path);
}

int EmbeddedIndex::formatVersion() const
{
    return static_cast<int>(m_database->integer("PRAGMA user_version").value_or(0));
}
