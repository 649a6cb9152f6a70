// What one durable index request costs: a 4 KB text sent through the socket to a service of its own, in
// indexes of 1,000, 10,000 and 100,000 documents, with and without a host that holds the index open; beside
// the cost of an fdatasync.
//
// usage: request-benchmark [REQUESTS]

#include "bench/SampleText.h"
#include "client/IndexingClient.h"
#include "platform/foundation/FileDescriptor.h"
#include "platform/search/SKIndex.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::size_t kTextByteCount = 4096;

using Milliseconds = std::chrono::duration<double, std::milli>;

void report(const std::string& what, std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    const auto at = [&](double share) {
        return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
    };
    fmt::print("| {} | {:.3f} | {:.3f} | {:.3f} |\n", what, at(0.5), at(0.95), at(0.99));
}

std::vector<double> timesOf(std::size_t count, const std::function<void(std::size_t)>& step)
{
    std::vector<double> times;
    for (std::size_t number = 0; number < count; ++number) {
        const auto start = std::chrono::steady_clock::now();
        step(number);
        times.push_back(Milliseconds(std::chrono::steady_clock::now() - start).count());
    }
    return times;
}

void fillIndex(const NSURL& url, std::size_t documentCount)
{
    const auto index = SKIndex::createWithURL(url);
    if (!index)
        throw std::runtime_error("the index was not made");
    for (std::size_t number = 0; number < documentCount; ++number) {
        const auto document = SKDocument::createWithURL(
            NSURL::fileURLWithPath(fmt::format("/library/{}/{}.txt", number % 100, number)));
        if (!index->addDocumentWithText(
                document, sampleText(static_cast<std::uint32_t>(number), kTextByteCount), SKReplace::Yes))
            throw std::runtime_error("a document was refused");
    }
    if (!index->flush())
        throw std::runtime_error("the index was not flushed");
}

void measureRequests(IndexingClient& client, const std::filesystem::path& folder, std::size_t size,
                     std::size_t count, bool held)
{
    const auto index = NSURL::fileURLWithPath((folder / std::to_string(size)).native());
    const auto item = NSURL::fileURLWithPath((folder / "item.txt").native());
    const auto holder = held ? SKIndex::openWithURL(index, SKIndexAccess::Read) : nullptr;
    const auto times = timesOf(count, [&](std::size_t number) {
        NSError error;
        const auto reply = client.indexItemWithIdentifier(
            "item", sampleText(static_cast<std::uint32_t>(number), kTextByteCount), item, {}, index, &error);
        if (!reply || reply->error)
            throw std::runtime_error(reply ? reply->error->localizedDescription()
                                           : error.localizedDescription());
    });
    report(fmt::format("{} documents{}", size, held ? ", held open by a host" : ""), times);
}

// An item is changed, and found by a host that searches the index it holds open.
void measureUpdate(IndexingClient& client, const std::filesystem::path& folder, std::size_t size,
                   std::size_t count)
{
    const auto index = NSURL::fileURLWithPath((folder / std::to_string(size)).native());
    const auto item = NSURL::fileURLWithPath((folder / "item.txt").native());
    const auto host = SKIndex::openWithURL(index, SKIndexAccess::Read);
    const auto times = timesOf(count, [&](std::size_t number) {
        const auto word = fmt::format("xyupdated{}", number);
        const auto reply = client.indexItemWithIdentifier(
            "item", word + " " + sampleText(static_cast<std::uint32_t>(number), kTextByteCount), item, {},
            index);
        std::vector<SKSearchHit> hits;
        if (!reply || reply->error || !host->search(word, {}, hits) || hits.size() != 1)
            throw std::runtime_error("the update was not found");
    });
    report(fmt::format("{} documents, held open, and found by the host", size), times);
}

void measureSync(const std::filesystem::path& folder, std::size_t count)
{
    const FileDescriptor file(::open((folder / "sync").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    const std::string block(kTextByteCount, 'x');
    report("fdatasync of a 4 KB append", timesOf(count, [&](std::size_t /*number*/) {
               if (!writeAll(file.get(), block) || ::fdatasync(file.get()) != 0)
                   throw std::runtime_error("the disk refused");
           }));
}

void run(const std::filesystem::path& folder, std::size_t count)
{
    (void)::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1); // NOLINT(concurrency-mt-unsafe): one thread so far
    if (!writeAll(
            FileDescriptor(::open((folder / "item.txt").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600)).get(),
            "item"))
        throw std::runtime_error("the item was not written");
    fmt::print("| one request, 4 KB | p50 ms | p95 ms | p99 ms |\n| --- | --- | --- | --- |\n");
    measureSync(folder, count);
    NSError error;
    const auto programs = std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "bin";
    const auto client = IndexingClient::connect({{}, (programs / "corvel-indexing").native()}, &error);
    if (!client)
        throw std::runtime_error(error.localizedDescription());
    for (const std::size_t size : {std::size_t{1000}, std::size_t{10'000}, std::size_t{100'000}}) {
        fillIndex(NSURL::fileURLWithPath((folder / std::to_string(size)).native()), size);
        measureRequests(*client, folder, size, count, false);
        measureRequests(*client, folder, size, count, true);
        measureUpdate(*client, folder, size, count);
    }
}

} // namespace

int main(int argumentCount, char** arguments)
{
    const auto folder
        = std::filesystem::temp_directory_path() / fmt::format("corvel-request-benchmark-{}", ::getpid());
    int status = 0;
    try {
        std::filesystem::create_directory(folder);
        run(folder, argumentCount > 1 ? std::stoul(arguments[1]) : 500);
    } catch (const std::exception& exception) {
        fmt::print(stderr, "request-benchmark: {}\n", exception.what());
        status = 1;
    }
    std::error_code ignored; // Temporary files.
    std::filesystem::remove_all(folder, ignored);
    return status;
}
