#include "fuzz/Mutator.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace {

constexpr std::size_t kMostChanges = 4;
constexpr std::size_t kMostRandomBytes = 8;
constexpr std::size_t kMostRepetitions = 16;

} // namespace

Mutator::Mutator(std::vector<std::string> seeds)
    : m_seeds(std::move(seeds))
{
    if (m_seeds.empty())
        m_seeds.emplace_back();
    for (auto& seed : m_seeds)
        seed.resize(std::min(seed.size(), kMaximumByteCount));
}

std::string Mutator::next()
{
    // Flipped bits leave most of an input sound, so they are tried most often.
    static constexpr std::array<Change, 8> kChanges{
        &Mutator::flipBit, &Mutator::flipBit, &Mutator::putExtremeNumber, &Mutator::putRandomBytes,
        &Mutator::cutOff,  &Mutator::takeOut, &Mutator::repeat,           &Mutator::splice};
    auto bytes = m_seeds[m_turn++ % m_seeds.size()];
    for (auto count = 1 + below(kMostChanges); count > 0; --count)
        (this->*kChanges.at(below(kChanges.size())))(bytes);
    bytes.resize(std::min(bytes.size(), kMaximumByteCount));
    return bytes;
}

// The standard's distributions differ between libraries, its generators do not.
std::size_t Mutator::below(std::size_t bound)
{
    return m_generator() % bound;
}

void Mutator::flipBit(std::string& bytes)
{
    if (bytes.empty())
        return;
    auto& byte = bytes[below(bytes.size())];
    byte = static_cast<char>(static_cast<unsigned char>(byte) ^ (1U << below(8)));
}

void Mutator::putExtremeNumber(std::string& bytes)
{
    static constexpr std::array<std::uint64_t, 6> kNumbers{
        0, 1, 0x7FFF'FFFF'FFFF'FFFF, 0x8000'0000'0000'0000, 0x8080'8080'8080'8080, 0xFFFF'FFFF'FFFF'FFFF};
    const auto length = std::size_t{1} << below(4);
    if (bytes.size() < length)
        return;
    const auto offset = below(bytes.size() - length + 1);
    const auto number = kNumbers.at(below(kNumbers.size()));
    const bool isLittleEndian = below(2) == 0;
    for (std::size_t index = 0; index < length; ++index) {
        const auto place = isLittleEndian ? index : length - 1 - index;
        // The highest bits of the number are those of the highest byte, whatever the length.
        bytes[offset + place] = static_cast<char>((number >> (8 * (8 - length + index))) & 0xFFU);
    }
}

void Mutator::putRandomBytes(std::string& bytes)
{
    std::string inserted(1 + below(kMostRandomBytes), '\0');
    std::generate(inserted.begin(), inserted.end(), [this] { return static_cast<char>(below(256)); });
    bytes.insert(below(bytes.size() + 1), inserted);
}

void Mutator::cutOff(std::string& bytes)
{
    bytes.resize(below(bytes.size() + 1));
}

void Mutator::takeOut(std::string& bytes)
{
    const auto offset = below(bytes.size() + 1);
    bytes.erase(offset, below(bytes.size() - offset + 1));
}

void Mutator::repeat(std::string& bytes)
{
    const auto offset = below(bytes.size() + 1);
    const auto piece = bytes.substr(offset, below(bytes.size() - offset + 1));
    for (auto count = 1 + below(kMostRepetitions); count > 0 && bytes.size() < kMaximumByteCount; --count)
        bytes.insert(offset, piece);
}

void Mutator::splice(std::string& bytes)
{
    const auto& other = m_seeds[below(m_seeds.size())];
    bytes.resize(below(bytes.size() + 1));
    bytes += other.substr(below(other.size() + 1));
}
