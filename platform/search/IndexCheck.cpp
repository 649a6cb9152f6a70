#include "platform/search/IndexCheck.h"

#include "platform/search/IndexFile.h"
#include "platform/search/SQLiteDatabase.h"
#include "platform/search/StoredText.h"

#include <fmt/format.h>

#include <array>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace {

struct Invariant {
    std::string_view finding;
    /// Gives a number for everything that breaks the invariant.
    std::string_view query;
};

constexpr std::array kInvariants = std::to_array<Invariant>({
    {"node {} has no parent",
     "SELECT id FROM node WHERE parent <> 0 AND parent NOT IN (SELECT id FROM node)"},
    {"node {} cannot be reached from the root",
     "WITH RECURSIVE reached(id) AS (SELECT id FROM node WHERE parent = 0 UNION SELECT node.id FROM node "
     "JOIN reached ON node.parent = reached.id) SELECT id FROM node WHERE id NOT IN (SELECT id FROM "
     "reached)"},
    {"container {} holds nothing",
     "SELECT id FROM node WHERE document IS NULL AND id NOT IN (SELECT parent FROM node)"},
    {"node {} names a document that is not there",
     "SELECT id FROM node WHERE document IS NOT NULL AND document NOT IN (SELECT id FROM document)"},
    {"document {} is not where it says in the tree",
     "SELECT id FROM document WHERE NOT EXISTS (SELECT 1 FROM node WHERE node.id = document.node "
     "AND node.document = document.id)"},
    {"document {} is beyond the highest identifier",
     "SELECT id FROM document WHERE id > (SELECT seq FROM sqlite_sequence WHERE name = 'document')"},
    {"document {} is missing from the full-text table",
     "SELECT id FROM document WHERE id NOT IN (SELECT id FROM fulltext_docsize)"},
    {"the full-text table knows document {}, which is not there",
     "SELECT id FROM fulltext_docsize WHERE id NOT IN (SELECT id FROM document)"},
});

constexpr std::size_t kMostFindings = 100;

class Check {
public:
    Check(const SQLiteDatabase& database, SKIndexAccess access)
        : m_database(database)
        , m_access(access)
    {
    }

    std::vector<std::string> run()
    {
        attempt("the file", [this] { checkFile(); });
        for (const auto& invariant : kInvariants)
            attempt("the tree", [&] { checkInvariant(invariant); });
        attempt("the texts", [this] { checkTexts(); });
        if (m_access == SKIndexAccess::Write)
            attempt("the full-text table", [this] { checkFullText(); });
        return std::move(m_findings);
    }

private:
    template <typename Step> void attempt(std::string_view what, const Step& step)
    {
        try {
            step();
        } catch (const SKIndexException& exception) {
            add(fmt::format("{} cannot be checked: {}", what, exception.what()));
        }
    }

    void add(std::string finding)
    {
        if (m_findings.size() < kMostFindings)
            m_findings.push_back(std::move(finding));
    }

    void checkFile()
    {
        auto statement = m_database.prepare("PRAGMA integrity_check");
        while (statement.step()) {
            if (statement.text(0) != "ok")
                add(std::string(statement.text(0)));
        }
    }

    void checkInvariant(const Invariant& invariant)
    {
        auto statement = m_database.prepare(invariant.query);
        while (statement.step())
            add(fmt::format(fmt::runtime(invariant.finding), statement.integer(0)));
    }

    void checkTexts()
    {
        auto statement = m_database.prepare("SELECT id, text FROM document");
        while (statement.step()) {
            if (!StoredText::unpack(statement.blob(1)))
                add(fmt::format("the text of document {} is damaged", statement.integer(0)));
        }
    }

    // With rank 1 the terms are compared with the texts they came from, not only with each other.
    void checkFullText()
    {
        try {
            m_database.prepare("INSERT INTO fulltext(fulltext, rank) VALUES('integrity-check', 1)").run();
        } catch (const SQLiteError& error) {
            if (error.isBusy())
                throw;
            add(fmt::format("the full-text table does not agree with the texts: {}", error.what()));
        }
    }

    const SQLiteDatabase& m_database;
    SKIndexAccess m_access;
    std::vector<std::string> m_findings;
};

} // namespace

std::vector<std::string> findingsOfCheck(const std::string& path)
{
    NSError error;
    // FTS5 takes its check as a write, though it writes nothing.
    const auto access = ::access(path.c_str(), W_OK) == 0 ? SKIndexAccess::Write : SKIndexAccess::Read;
    auto database = IndexFile::open(path, access, IndexFile::kDefaultBusyTimeout, &error);
    if (!database)
        return {error.localizedDescription()};
    return Check(*database, access).run();
}
