// What a search costs in an index of 1,000, 10,000 and 100,000 documents of 2.7 KB: the best 20 hits with and
// without snippets, on an index that is open.

#include "bench/SampleText.h"
#include "platform/search/SKIndex.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace {

constexpr std::size_t kTextByteCount = 2700;

std::unique_ptr<SKIndex> makeIndex(const std::filesystem::path& path, std::int64_t documentCount)
{
    NSError error;
    auto index = SKIndex::createWithURL(NSURL::fileURLWithPath(path.native()), &error);
    if (!index)
        throw std::runtime_error(error.localizedDescription());
    for (std::int64_t number = 0; number < documentCount; ++number) {
        const auto url = NSURL::fileURLWithPath("/library/" + std::to_string(number % 100) + "/"
                                                + std::to_string(number) + ".txt");
        if (!index->addDocumentWithText(SKDocument::createWithURL(url),
                                        sampleText(static_cast<std::uint32_t>(number), kTextByteCount),
                                        SKReplace::Yes))
            throw std::runtime_error("a document was refused");
    }
    if (!index->flush())
        throw std::runtime_error("the index was not flushed");
    return index;
}

/// Indexes that are made once and go away with the program.
class Indexes {
public:
    Indexes()
        : m_folder(std::filesystem::temp_directory_path()
                   / ("corvel-search-benchmark-" + std::to_string(::getpid())))
    {
        std::filesystem::create_directory(m_folder);
    }

    Indexes(const Indexes&) = delete;
    Indexes& operator=(const Indexes&) = delete;

    ~Indexes()
    {
        m_indexes.clear();
        std::error_code ignored; // Temporary files.
        std::filesystem::remove_all(m_folder, ignored);
    }

    const SKIndex& ofSize(std::int64_t documentCount)
    {
        auto& index = m_indexes[documentCount];
        if (!index)
            index = makeIndex(m_folder / std::to_string(documentCount), documentCount);
        return *index;
    }

private:
    std::filesystem::path m_folder;
    std::map<std::int64_t, std::unique_ptr<SKIndex>> m_indexes;
};

void search(benchmark::State& state, const std::string& query, bool snippets)
{
    static Indexes indexes;
    const auto& index = indexes.ofSize(state.range(0));
    SKSearchOptions options;
    options.snippets = snippets;
    std::vector<SKSearchHit> hits;
    for ([[maybe_unused]] auto _ :
         state) { // NOLINT(clang-analyzer-deadcode.DeadStores): what the library asks for
        NSError error;
        if (!index.search(query, options, hits, &error))
            throw std::runtime_error(error.localizedDescription());
    }
    state.counters["hits"] = static_cast<double>(hits.size());
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(search, rareWord, sampleWord(45'000), true)->Apply(sizes);
BENCHMARK_CAPTURE(search, middlingWord, sampleWord(500), true)->Apply(sizes);
BENCHMARK_CAPTURE(search, stopWord, sampleWord(0), true)->Apply(sizes);
BENCHMARK_CAPTURE(search, stopWordWithoutSnippets, sampleWord(0), false)->Apply(sizes);
BENCHMARK_CAPTURE(search, twoWords, sampleWord(50) + " " + sampleWord(80), true)->Apply(sizes);
BENCHMARK_CAPTURE(search, phrase, "\"" + sampleWord(0) + " " + sampleWord(1) + "\"", true)->Apply(sizes);
BENCHMARK_CAPTURE(search, prefix, sampleWord(500).substr(0, 4) + "*", true)->Apply(sizes);
BENCHMARK_CAPTURE(search, nothing, std::string("qqqq"), true)->Apply(sizes);

} // namespace

BENCHMARK_MAIN();
