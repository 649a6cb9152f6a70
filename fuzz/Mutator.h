#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <vector>

/// Makes damaged inputs from sound ones: bits flipped, numbers replaced by extreme ones, pieces cut off,
/// taken out, repeated, or put in from another input. Two mutators with the same seeds make the same inputs
/// in the same order, on every machine.
class Mutator {
public:
    /// No input is longer than this, and of a longer seed only the beginning is used.
    static constexpr std::size_t kMaximumByteCount = std::size_t{64} << 10;

    /// Without seeds it begins with an empty input.
    explicit Mutator(std::vector<std::string> seeds);

    /// The next damaged input. The seeds take turns.
    [[nodiscard]] std::string next();

private:
    using Change = void (Mutator::*)(std::string& bytes);

    [[nodiscard]] std::size_t below(std::size_t bound);
    void flipBit(std::string& bytes);
    void putExtremeNumber(std::string& bytes);
    void putRandomBytes(std::string& bytes);
    void cutOff(std::string& bytes);
    void takeOut(std::string& bytes);
    void repeat(std::string& bytes);
    void splice(std::string& bytes);

    std::vector<std::string> m_seeds;
    std::size_t m_turn = 0;
    std::mt19937 m_generator{20240229}; // NOLINT(bugprone-random-generator-seed): the same inputs each time
};
