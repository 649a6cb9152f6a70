// How fast rich text is written and read, and how the cost grows: prose with a few runs a paragraph, from 1
// to 100 MB of RTF. Linear is a growth of 1. Also the text alone, as the index reads it.

#include "bench/Growth.h"
#include "bench/SampleText.h"
#include "platform/foundation/Unicode.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/rtf/RTFText.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"

#include <algorithm>
#include <array>
#include <functional>
#include <stdexcept>
#include <string>

namespace {

namespace Formats = NSAttributedStringDocumentFormats;

constexpr std::array<std::size_t, 3> kMegabytes{1, 10, 100};
constexpr double kBytesOfMegabyte = 1'000'000;

/// Paragraphs of some 400 characters in four runs: plain, bold, plain, coloured; every tenth is a heading.
NSAttributedString prose(std::size_t byteCount)
{
    constexpr std::size_t kRun = 100;
    const auto words = UTF16FromUTF8(sampleText(1, byteCount));
    const NSAny plain(NSFont::fontWithName(u"Helvetica", 12));
    const NSAny bold(NSFont::fontWithName(u"Helvetica-Bold", 12));
    NSMutableParagraphStyle heading;
    heading.setParagraphSpacing(6);
    const std::array styles{NSAny(NSParagraphStyle::defaultParagraphStyle()), NSAny(heading.copy())};
    const NSAny color(NSColor::colorWithSRGBRed(0.8, 0.2, 0, 1));
    NSMutableAttributedString text;
    for (std::size_t start = 0; start < words.size(); start += kRun) {
        const auto run = start / kRun;
        auto piece = words.substr(start, kRun);
        std::replace(piece.begin(), piece.end(), u'\n', u' ');
        if (run % 4 == 3)
            piece += u'\n';
        NSAttributes attributes{
            {std::u16string(NSFontAttributeName), run % 4 == 1 ? bold : plain},
            {std::u16string(NSParagraphStyleAttributeName), styles.at(run / 4 % 10 == 0)}};
        if (run % 4 == 3)
            attributes.emplace(NSForegroundColorAttributeName, color);
        text.appendAttributedString(NSAttributedString(std::move(piece), std::move(attributes)));
    }
    return text;
}

NSData written(const NSAttributedString& text)
{
    auto document = Formats::RTFFromRange(text, {0, text.length()});
    if (!document)
        throw std::logic_error("the text was not written");
    return std::move(*document);
}

/// Megabytes of RTF a second, at best.
double rateOf(std::size_t byteCount, const std::function<void()>& operation)
{
    constexpr std::size_t kRepetitions = 3;
    return static_cast<double>(byteCount) / kBytesOfMegabyte / bestProcessorTime(operation, kRepetitions);
}

std::size_t lengthOfText(const std::string& document)
{
    std::size_t length = 0;
    (void)readRTFText(document, [&length](std::string_view piece) {
        length += piece.size();
        return true;
    });
    return length;
}

} // namespace

int main()
{
    GrowthFigures writing{};
    GrowthFigures reading{};
    GrowthFigures extracting{};
    for (std::size_t index = 0; index < kMegabytes.size(); ++index) {
        const auto text = prose(kMegabytes.at(index) * static_cast<std::size_t>(kBytesOfMegabyte));
        const auto document = written(text);
        const auto size = document.bytes.size();
        writing.at(index) = rateOf(size, [&text] { (void)written(text); });
        reading.at(index) = rateOf(size, [&document] {
            if (!Formats::initWithRTF(document))
                throw std::logic_error("the document was not read");
        });
        extracting.at(index) = rateOf(size, [&document] {
            if (lengthOfText(document.bytes) == 0)
                throw std::logic_error("the document has no text");
        });
    }
    printGrowthHeader("operation", "MB of RTF a second", {"1 MB", "10 MB", "100 MB"});
    printGrowthOfRate("write", writing);
    printGrowthOfRate("read", reading);
    printGrowthOfRate("text alone", extracting);
    return 0;
}
