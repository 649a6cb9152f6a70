#include "tests/support/LockedPDF.h"

#include <fmt/format.h>
#include <glib.h>

#include <array>
#include <numeric>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t kPasswordLength = 32;
constexpr std::size_t kKeyLength = 5;
constexpr std::string_view kIdentifier = "0123456789abcdef";
/// All permissions, as a number and as the four bytes of it.
constexpr int kPermissions = -4;
constexpr std::string_view kPermissionBytes = "\xFC\xFF\xFF\xFF";

/// What fills passwords up, as the format states it.
constexpr std::array<unsigned char, kPasswordLength> kPadding{
    0x28, 0xBF, 0x4E, 0x5E, 0x4E, 0x75, 0x8A, 0x41, 0x64, 0x00, 0x4E, 0x56, 0xFF, 0xFA, 0x01, 0x08,
    0x2E, 0x2E, 0x00, 0xB6, 0xD0, 0x68, 0x3E, 0x80, 0x2F, 0x0C, 0xA9, 0xFE, 0x64, 0x53, 0x69, 0x7A};

std::string padded(std::string_view password)
{
    std::string bytes(password.substr(0, kPasswordLength));
    bytes.append(kPadding.begin(), kPadding.end());
    bytes.resize(kPasswordLength);
    return bytes;
}

/// The first bytes of the MD5 sum.
std::string keyOf(std::string_view bytes)
{
    auto* checksum = g_checksum_new(G_CHECKSUM_MD5);
    g_checksum_update(checksum, reinterpret_cast<const guchar*>(bytes.data()),
                      static_cast<gssize>(bytes.size()));
    std::array<unsigned char, 16> digest{};
    gsize length = digest.size();
    g_checksum_get_digest(checksum, digest.data(), &length);
    g_checksum_free(checksum);
    return {digest.begin(), digest.begin() + kKeyLength};
}

std::string rc4(std::string_view key, std::string_view bytes)
{
    std::array<unsigned char, 256> state{};
    std::iota(state.begin(), state.end(), static_cast<unsigned char>(0));
    unsigned other = 0;
    for (unsigned index = 0; index < state.size(); ++index) {
        other = (other + state[index] + static_cast<unsigned char>(key[index % key.size()])) % 256;
        std::swap(state[index], state[other]);
    }
    std::string result;
    unsigned index = 0;
    other = 0;
    for (const auto byte : bytes) {
        index = (index + 1) % 256;
        other = (other + state[index]) % 256;
        std::swap(state[index], state[other]);
        const auto mask = state[(state[index] + state[other]) % 256U];
        result.push_back(static_cast<char>(static_cast<unsigned char>(byte) ^ mask));
    }
    return result;
}

std::string hexadecimal(std::string_view bytes)
{
    std::string text;
    for (const auto byte : bytes)
        text += fmt::format("{:02x}", static_cast<unsigned char>(byte));
    return text;
}

} // namespace

std::string lockedPDF(std::string_view userPassword)
{
    const auto user = padded(userPassword);
    const auto ownerEntry = rc4(keyOf(padded("owner")), user);
    const auto key = keyOf(user + ownerEntry + std::string(kPermissionBytes) + std::string(kIdentifier));
    const auto userEntry = rc4(key, padded({}));

    const std::vector<std::string> objects{
        "<</Type/Catalog/Pages 2 0 R>>",
        "<</Type/Pages/Kids[3 0 R]/Count 1>>",
        "<</Type/Page/Parent 2 0 R/MediaBox[0 0 600 800]>>",
        fmt::format("<</Filter/Standard/V 1/R 2/O<{}>/U<{}>/P {}>>", hexadecimal(ownerEntry),
                    hexadecimal(userEntry), kPermissions),
    };
    std::string bytes = "%PDF-1.4\n";
    std::string table = "0000000000 65535 f \n";
    for (std::size_t index = 0; index < objects.size(); ++index) {
        table += fmt::format("{:010} 00000 n \n", bytes.size());
        bytes += fmt::format("{} 0 obj\n{}\nendobj\n", index + 1, objects[index]);
    }
    const auto start = bytes.size();
    const auto identifier = hexadecimal(kIdentifier);
    return bytes
        + fmt::format("xref\n0 {}\n{}trailer\n<</Size {}/Root 1 0 R/Encrypt 4 0 R/ID[<{}><{}>]>>\n"
                      "startxref\n{}\n%%EOF\n",
                      objects.size() + 1, table, objects.size() + 1, identifier, identifier, start);
}
