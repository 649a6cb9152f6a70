#include "platform/search/DocumentTree.h"

#include <algorithm>
#include <utility>

namespace {

// Deeper than any path the system allows; a damaged index may hold a circle.
constexpr std::size_t kDeepest = 10'000;

// From the scheme downwards.
std::vector<std::string> namesFromRoot(const SKDocumentRef& document)
{
    std::vector<std::string> names;
    for (const auto* step = document.get(); step; step = step->parent().get())
        names.push_back(step->name().value_or(std::string()));
    names.push_back(document->schemePrefix());
    std::reverse(names.begin(), names.end());
    return names;
}

} // namespace

DocumentTree::DocumentTree(const SQLiteDatabase& database)
    : m_database(database)
    , m_child(database.prepare("SELECT id, parent, name, document FROM node WHERE parent = ?1 AND name = ?2"))
    , m_node(database.prepare("SELECT id, parent, name, document FROM node WHERE id = ?1"))
{
}

DocumentTree::Node DocumentTree::row(const SQLiteStatement& statement)
{
    return {statement.integer(0), statement.integer(1), std::string(statement.text(2)),
            statement.isNull(3) ? std::nullopt : std::optional(statement.integer(3))};
}

std::optional<DocumentTree::Node> DocumentTree::child(NodeID parent, std::string_view name)
{
    const SQLiteReset atEnd(m_child);
    return m_child.bind(1, parent).bindText(2, name).step() ? std::optional(row(m_child)) : std::nullopt;
}

std::optional<DocumentTree::Node> DocumentTree::node(NodeID identifier)
{
    const SQLiteReset atEnd(m_node);
    return m_node.bind(1, identifier).step() ? std::optional(row(m_node)) : std::nullopt;
}

std::optional<DocumentTree::Node> DocumentTree::find(const SKDocumentRef& document)
{
    std::optional<Node> found = Node{};
    for (const auto& name : namesFromRoot(document)) {
        found = child(found->id, name);
        if (!found)
            break;
    }
    return found;
}

DocumentTree::Node DocumentTree::add(NodeID parent, std::string_view name)
{
    if (!m_insert)
        m_insert.emplace(m_database.prepare("INSERT INTO node(parent, name) VALUES(?1, ?2)"));
    m_insert->bind(1, parent).bindText(2, name).run();
    return {m_database.lastInsertedRow(), parent, std::string(name), std::nullopt};
}

DocumentTree::Node DocumentTree::ensure(const SKDocumentRef& document)
{
    Node node;
    for (const auto& name : namesFromRoot(document)) {
        auto found = child(node.id, name);
        node = found ? std::move(*found) : add(node.id, name);
    }
    return node;
}

SKDocumentRef DocumentTree::documentOfNode(NodeID identifier)
{
    std::vector<std::string> names;
    auto current = node(identifier);
    while (current && current->parent != kRoot && names.size() < kDeepest) {
        names.push_back(std::move(current->name));
        current = node(current->parent);
    }
    if (!current || current->parent != kRoot)
        return nullptr;
    SKDocumentRef document;
    std::reverse(names.begin(), names.end());
    for (const auto& name : names)
        document = SKDocument::createWithPrefix(current->name, document, name);
    return document;
}

std::vector<DocumentTree::Node> DocumentTree::subtree(NodeID top)
{
    auto statement = m_database.prepare(R"sql(
        WITH RECURSIVE below(id, parent, name, document) AS (
            SELECT id, parent, name, document FROM node WHERE id = ?1
            UNION
            SELECT node.id, node.parent, node.name, node.document FROM node JOIN below ON node.parent = below.id)
        SELECT id, parent, name, document FROM below)sql");
    statement.bind(1, top);
    std::vector<Node> nodes;
    while (statement.step())
        nodes.push_back(row(statement));
    return nodes;
}

std::vector<DocumentTree::Node> DocumentTree::childDocuments(NodeID parent)
{
    auto statement = m_database.prepare("SELECT id, parent, name, document FROM node "
                                        "WHERE parent = ?1 AND document IS NOT NULL ORDER BY name");
    statement.bind(1, parent);
    std::vector<Node> nodes;
    while (statement.step())
        nodes.push_back(row(statement));
    return nodes;
}

void DocumentTree::setDocument(NodeID node, std::optional<SKDocumentID> document)
{
    auto statement = m_database.prepare("UPDATE node SET document = ?2 WHERE id = ?1");
    statement.bind(1, node);
    document ? statement.bind(2, *document) : statement.bindNull(2);
    statement.run();
}

void DocumentTree::setPlace(NodeID node, NodeID parent, std::string_view name)
{
    m_database.prepare("UPDATE node SET parent = ?2, name = ?3 WHERE id = ?1")
        .bind(1, node)
        .bind(2, parent)
        .bindText(3, name)
        .run();
}

void DocumentTree::remove(NodeID node)
{
    m_database.prepare("DELETE FROM node WHERE id = ?1").bind(1, node).run();
}

void DocumentTree::prune(NodeID container)
{
    auto anyChild = m_database.prepare("SELECT 1 FROM node WHERE parent = ?1 LIMIT 1");
    for (auto current = node(container); current && !current->document; current = node(current->parent)) {
        const SQLiteReset atEnd(anyChild);
        if (anyChild.bind(1, current->id).step())
            return;
        remove(current->id);
    }
}
