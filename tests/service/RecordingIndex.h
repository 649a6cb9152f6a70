#pragma once

#include "platform/search/SKIndex.h"
#include "service/IndexingEnvironment.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// What a recording index was asked to do, and what it is to answer.
struct IndexRecord {
    /// One line for each call: "open", "add a.txt by file as text/plain", "flush", "close" ...
    std::vector<std::string> events;
    /// A document's URL starts with this in no event.
    std::string prefix;

    bool opens = true;
    bool renames = true;
    bool moves = true;
    bool flushes = true;
    bool compacts = true;
    /// Answers whether a document can be added; may raise.
    std::function<bool(const std::string& name)> adds = [](const std::string&) { return true; };
    std::function<bool()> removes = [] { return true; };
    /// What else happens in a flush.
    std::function<void()> whenFlushed = [] {};
    std::vector<SKDocumentRef> children;
    std::int64_t documentCount = 0;
    SKDocumentID maximumDocumentID = 0;

    void note(const std::string& event) { events.push_back(event); }

    /// The URL without the prefix, percent-decoded.
    [[nodiscard]] std::string shortName(const SKDocumentRef& document) const;
    [[nodiscard]] std::vector<std::string> eventsStartingWith(std::string_view start) const;
};

/// An environment whose indexes write down what happens to them.
[[nodiscard]] IndexingEnvironment recordingEnvironment(const std::shared_ptr<IndexRecord>& record);
