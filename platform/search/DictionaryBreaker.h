#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>

/// Finds words in scripts that are written without spaces, with ICU's dictionaries.
class DictionaryBreaker {
public:
    /// Costs about as much as a small document: keep one and use it again. @throws std::runtime_error without
    /// ICU data.
    DictionaryBreaker();
    DictionaryBreaker(const DictionaryBreaker&) = delete;
    DictionaryBreaker& operator=(const DictionaryBreaker&) = delete;
    ~DictionaryBreaker();

    /// Calls `word` with the byte range of each word of `utf8` until it answers false; false then.
    bool forEachWord(std::string_view utf8,
                     const std::function<bool(std::size_t begin, std::size_t end)>& word);

private:
    struct State;
    std::unique_ptr<State> m_state;
};
