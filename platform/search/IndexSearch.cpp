#include "platform/search/IndexSearch.h"

#include "platform/search/IndexFile.h"
#include "platform/search/SearchQuery.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

namespace {

// The join leaves out entries whose document is gone, which a change of ICU's data can leave behind in the
// terms.
constexpr std::string_view kWithSnippets
    = "SELECT document.node, fulltext.rank, snippet(fulltext, 1, ?4, ?5, '…', 24) FROM fulltext "
      "JOIN document ON document.id = fulltext.rowid WHERE fulltext MATCH ?1 ORDER BY fulltext.rank LIMIT ?2 "
      "OFFSET ?3";
constexpr std::string_view kWithoutSnippets = "SELECT document.node, fulltext.rank, '' FROM fulltext "
                                              "JOIN document ON document.id = fulltext.rowid WHERE fulltext "
                                              "MATCH ?1 ORDER BY fulltext.rank LIMIT ?2 OFFSET ?3";

std::int64_t clamped(std::size_t value)
{
    return static_cast<std::int64_t>(std::min<std::size_t>(value, std::numeric_limits<std::int64_t>::max()));
}

/// With spaces for the characters that stand for the files and boxes of a note: they part words, too.
std::string readableSnippet(std::string_view snippet)
{
    constexpr std::string_view kObject = "\uFFFC";
    std::string readable;
    for (;;) {
        const auto object = std::min(snippet.find(kObject), snippet.size());
        readable += snippet.substr(0, object);
        if (object == snippet.size())
            return readable;
        readable += ' ';
        snippet.remove_prefix(object + kObject.size());
    }
}

std::optional<NSURL> parentOf(DocumentTree& tree, NodeID identifier, const SKDocumentRef& document)
{
    const auto node = tree.node(identifier);
    const auto above = node ? tree.node(node->parent) : std::nullopt;
    return above && above->document && document->parent() ? std::optional(document->parent()->URL())
                                                          : std::nullopt;
}

} // namespace

bool searchIndex(const SQLiteDatabase& database, DocumentTree& tree, std::string_view query,
                 const SKSearchOptions& options, std::vector<SKSearchHit>& hits, NSError* error)
{
    hits.clear();
    std::string problem;
    const auto expression = SearchQuery::expressionFor(query, problem);
    if (!expression) {
        setError(error, IndexFile::error(IndexFile::Error::BadQuery, problem));
        return false;
    }
    try {
        auto statement = database.prepare(options.snippets ? kWithSnippets : kWithoutSnippets);
        statement.bindText(1, *expression).bind(2, clamped(options.limit)).bind(3, clamped(options.offset));
        if (options.snippets)
            statement.bindText(4, options.matchStart).bindText(5, options.matchEnd);
        while (statement.step()) {
            const auto node = statement.integer(0);
            const auto document = tree.documentOfNode(node);
            if (!document)
                throw SKIndexException("a document has no place in the tree");
            hits.push_back({document->URL(), -statement.real(1), readableSnippet(statement.text(2)),
                            parentOf(tree, node, document)});
        }
        return true;
    } catch (const SKIndexException& failure) {
        hits.clear();
        setError(error, IndexFile::error(IndexFile::Error::Damaged, failure.what()));
        return false;
    }
}
