#include "tests/service/RecordingIndex.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

class ListIterator final : public SKIndexDocumentIterator {
public:
    explicit ListIterator(std::vector<SKDocumentRef> documents)
        : m_documents(std::move(documents))
    {
    }

    [[nodiscard]] SKDocumentRef copyNext() override
    {
        return m_next < m_documents.size() ? m_documents[m_next++] : nullptr;
    }

private:
    std::vector<SKDocumentRef> m_documents;
    std::size_t m_next = 0;
};

class RecordingIndex final : public SKIndex {
public:
    explicit RecordingIndex(std::shared_ptr<IndexRecord> record)
        : m_record(std::move(record))
    {
    }

    RecordingIndex(const RecordingIndex&) = delete;
    RecordingIndex& operator=(const RecordingIndex&) = delete;

    ~RecordingIndex() override { m_record->note("close"); }

    [[nodiscard]] bool addDocumentWithText(const SKDocumentRef& document, std::string_view text,
                                           SKReplace replace) override
    {
        const auto name = m_record->shortName(document);
        m_record->note("add " + name + " with \"" + std::string(text) + "\"" + suffix(replace));
        return m_record->adds(name);
    }

    [[nodiscard]] bool addDocument(const SKDocumentRef& document,
                                   const std::optional<std::string>& mimeTypeHint, SKReplace replace) override
    {
        const auto name = m_record->shortName(document);
        m_record->note("add " + name + " by file" + (mimeTypeHint ? " as " + *mimeTypeHint : "")
                       + suffix(replace));
        return m_record->adds(name);
    }

    [[nodiscard]] bool removeDocument(const SKDocumentRef& document) override
    {
        m_record->note("remove " + m_record->shortName(document));
        return m_record->removes();
    }

    [[nodiscard]] bool renameDocument(const SKDocumentRef& document, std::string_view newName) override
    {
        m_record->note("rename " + m_record->shortName(document) + " to " + std::string(newName));
        return m_record->renames;
    }

    [[nodiscard]] bool moveDocument(const SKDocumentRef& document, const SKDocumentRef& newParent) override
    {
        m_record->note("move " + m_record->shortName(document) + " under " + m_record->shortName(newParent));
        return m_record->moves;
    }

    [[nodiscard]] bool flush() override
    {
        m_record->note("flush");
        m_record->whenFlushed();
        return m_record->flushes;
    }

    [[nodiscard]] bool compact() override
    {
        m_record->note("compact");
        return m_record->compacts;
    }

    [[nodiscard]] std::int64_t documentCount() const override { return m_record->documentCount; }

    [[nodiscard]] SKDocumentID maximumDocumentID() const override { return m_record->maximumDocumentID; }

    [[nodiscard]] SKDocumentState documentState(const SKDocumentRef& /*document*/) const override
    {
        return SKDocumentState::NotIndexed;
    }

    [[nodiscard]] std::optional<SKDocumentID> documentID(const SKDocumentRef& /*document*/) const override
    {
        return std::nullopt;
    }

    [[nodiscard]] SKDocumentRef copyDocumentForDocumentID(SKDocumentID /*identifier*/) const override
    {
        return nullptr;
    }

    [[nodiscard]] std::optional<std::string>
    copyDocumentText(const SKDocumentRef& /*document*/) const override
    {
        return std::nullopt;
    }

    [[nodiscard]] std::optional<SKFileStamp>
    documentFileStamp(const SKDocumentRef& /*document*/) const override
    {
        return std::nullopt;
    }

    [[nodiscard]] std::unique_ptr<SKIndexDocumentIterator>
    documentIterator(const SKDocumentRef& parent) const override
    {
        m_record->note("walk the children of " + m_record->shortName(parent));
        return std::make_unique<ListIterator>(m_record->children);
    }

    [[nodiscard]] bool search(std::string_view /*query*/, const SKSearchOptions& /*options*/,
                              std::vector<SKSearchHit>& /*hits*/, NSError* /*error*/) const override
    {
        return false;
    }

    [[nodiscard]] std::vector<std::string> check() const override { return {}; }

    [[nodiscard]] int formatVersion() const override { return 1; }

private:
    static std::string suffix(SKReplace replace)
    {
        return replace == SKReplace::Yes ? "" : " without replacing";
    }

    std::shared_ptr<IndexRecord> m_record;
};

} // namespace

std::string IndexRecord::shortName(const SKDocumentRef& document) const
{
    const auto string = document->URL().absoluteString();
    return percentDecoded(string.starts_with(prefix) ? string.substr(prefix.size()) : string);
}

std::vector<std::string> IndexRecord::eventsStartingWith(std::string_view start) const
{
    std::vector<std::string> found;
    std::copy_if(events.begin(), events.end(), std::back_inserter(found),
                 [start](const std::string& event) { return event.starts_with(start); });
    return found;
}

IndexingEnvironment recordingEnvironment(const std::shared_ptr<IndexRecord>& record)
{
    IndexingEnvironment environment;
    environment.openIndex = [record](const NSURL& /*url*/, NSError* error) -> std::unique_ptr<SKIndex> {
        record->note(record->opens ? "open" : "refuse to open");
        if (record->opens)
            return std::make_unique<RecordingIndex>(record);
        setError(error, NSError(NSPOSIXErrorDomain, 1));
        return nullptr;
    };
    return environment;
}
