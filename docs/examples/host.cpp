// A host in small: has a file indexed by the service, then searches the index.

#include <client/IndexingClient.h>
#include <cstdlib>
#include <iostream>
#include <platform/search/SKIndex.h>

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 4) {
        std::cerr << "usage: host INDEX FILE QUERY\n";
        return EXIT_FAILURE;
    }
    const auto indexURL = NSURL::fileURLWithPath(arguments[1]);
    const auto fileURL = NSURL::fileURLWithPath(arguments[2]);
    NSError error;
    if (!indexURL.checkResourceIsReachableAndReturnError() && !SKIndex::createWithURL(indexURL, &error)) {
        std::cerr << error.localizedDescription() << "\n";
        return EXIT_FAILURE;
    }

    const auto client = IndexingClient::connect({}, &error); // Starts the service if none listens.
    const auto reply = client
        ? client->indexItemWithIdentifier(fileURL.absoluteString(), {}, fileURL, {}, indexURL, &error)
        : std::nullopt;
    if (!reply || reply->error) {
        std::cerr << (reply ? *reply->error : error).localizedDescription() << "\n";
        return EXIT_FAILURE;
    }

    const auto index = SKIndex::openWithURL(indexURL, SKIndexAccess::Read, &error);
    std::vector<SKSearchHit> hits;
    if (!index || !index->search(arguments[3], {}, hits, &error)) {
        std::cerr << error.localizedDescription() << "\n";
        return EXIT_FAILURE;
    }
    for (const auto& hit : hits)
        std::cout << hit.url.path() << "\n    " << hit.snippet << "\n";
    return EXIT_SUCCESS;
}
