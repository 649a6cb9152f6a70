#include "fuzz/Seeds.h"
#include "tests/support/CompoundFileBytes.h"
#include "tests/support/WordBytes.h"

namespace {

constexpr std::uint64_t kEnglish = 0x0409;
constexpr std::uint64_t kRussian = 0x0419;
constexpr std::uint32_t kMiniCutoff = 4096;

} // namespace

std::vector<Seed> legacyWordSeeds()
{
    const auto word97 = word97Streams({narrowPiece("A caf\xE9 with \x13 PAGE \x14"
                                                   "12\x15 pages.\r"),
                                       widePiece(u"東京 \x07"),
                                       narrowPiece("cell\x07\x07\x0C"
                                                   "end\r")});
    const auto small
        = compoundFileOf({{"WordDocument", word97.document}, {"1Table", word97.table}}, kMiniCutoff);
    const auto word6
        = compoundFileOf({{"WordDocument", word6Stream("\xCF\xF0\xE8\xE2\xE5\xF2\r", kRussian)}});
    auto word2 = word6Stream("Plain old text.\r", kEnglish);
    putLittleEndian(word2, 0, 0xA5DB, 2);
    return {{"word97", word97.file()},
            {"word97-small-streams", small},
            {"word6", word6},
            {"word2", word2},
            {"word-xml",
             "<?xml version='1.0'?><w:wordDocument xmlns:w='w'><w:body><w:p><w:r><w:t>text</w:t></w:r></w:p>"
             "</w:body></w:wordDocument>"}};
}
