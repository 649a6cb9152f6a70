#pragma once

#include "platform/search/SKDocument.h"
#include "platform/search/SKIndex.h"
#include "platform/search/SQLiteDatabase.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using NodeID = std::int64_t;

/// The tree of names in which documents live: a node is a name under a parent, and is a document, or a
/// container that holds some, or both. Containers that hold nothing are not kept.
class DocumentTree {
public:
    struct Node {
        NodeID id = 0;
        NodeID parent = 0;
        std::string name;
        /// The document's identifier; none for a mere container.
        std::optional<SKDocumentID> document;
    };

    /// The node above all schemes.
    static constexpr NodeID kRoot = 0;

    explicit DocumentTree(const SQLiteDatabase& database);

    [[nodiscard]] std::optional<Node> find(const SKDocumentRef& document);
    [[nodiscard]] std::optional<Node> child(NodeID parent, std::string_view name);
    [[nodiscard]] std::optional<Node> node(NodeID identifier);
    /// The node for `document`; it and its parents are made where they are missing.
    [[nodiscard]] Node ensure(const SKDocumentRef& document);

    /// The document that a node stands for. Null when its parents do not lead to a scheme.
    [[nodiscard]] SKDocumentRef documentOfNode(NodeID identifier);

    /// The node and all beneath it, parents before children.
    [[nodiscard]] std::vector<Node> subtree(NodeID top);
    /// The nodes directly beneath `parent` that are documents, by name.
    [[nodiscard]] std::vector<Node> childDocuments(NodeID parent);

    void setDocument(NodeID node, std::optional<SKDocumentID> document);
    void setPlace(NodeID node, NodeID parent, std::string_view name);
    void remove(NodeID node);
    /// Removes the container and those above it while they are no documents and hold nothing.
    void prune(NodeID container);

private:
    [[nodiscard]] static Node row(const SQLiteStatement& statement);
    [[nodiscard]] Node add(NodeID parent, std::string_view name);

    const SQLiteDatabase& m_database;
    SQLiteStatement m_child;
    SQLiteStatement m_node;
    std::optional<SQLiteStatement> m_insert;
};
