#include "platform/media/LegacyWordReader.h"

#include "platform/foundation/TextDecoder.h"
#include "platform/media/CompoundFile.h"
#include "platform/media/SourceBytes.h"
#include "platform/media/WordCharacterFilter.h"
#include "platform/media/WordFileInformation.h"
#include "platform/media/WordPieceTable.h"
#include "platform/media/WordprocessingReader.h"
#include "platform/types/UTType.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kChunkByteCount = 32768;
constexpr std::size_t kProbeByteCount = 1024;
constexpr std::size_t kPieceTableByteLimit = std::size_t{16} << 20;
constexpr std::string_view kDocumentStream = "WordDocument";

/// Gives bytes of the file or of its document stream; fewer than asked for at the end.
using ReadBytes = std::function<std::string(std::uint64_t offset, std::size_t byteCount)>;

ReadResult damaged(std::string_view reason)
{
    return {ContentStatus::Damaged, std::string(reason)};
}

/// False when the sink is full or the file ends before the piece does.
bool readPiece(const WordPiece& piece, const ReadBytes& readBytes, TextDecoder& decoder,
               WordCharacterFilter& filter, ContentSink& sink)
{
    std::string text;
    for (std::uint64_t done = 0; done < piece.byteCount;) {
        const auto wanted = std::min<std::uint64_t>(kChunkByteCount, piece.byteCount - done);
        const auto bytes = readBytes(piece.offset + done, static_cast<std::size_t>(wanted));
        text.clear();
        decoder.append(bytes, text);
        if (!sink.append(filter.filtered(text)) || bytes.size() < wanted)
            return false;
        done += wanted;
    }
    text.clear();
    decoder.finish(text);
    return sink.append(filter.filtered(text));
}

ReadResult readPieces(const std::vector<WordPiece>& pieces, std::string_view charsetName,
                      const ReadBytes& readBytes, ContentSink& sink)
{
    auto narrow = TextDecoder::createWithCharset(charsetName);
    auto wide = TextDecoder::createWithCharset("utf-16le");
    if (!narrow || !wide)
        return damaged("the document is in a character set that is not known");
    WordCharacterFilter filter;
    for (const auto& piece : pieces) {
        if (readPiece(piece, readBytes, piece.isWide ? *wide : *narrow, filter, sink))
            continue;
        return sink.isFull() ? ReadResult() : damaged("the document's text is cut off");
    }
    return {};
}

std::vector<WordPiece> piecesOf(const WordFileInformation& information, CompoundFile* file)
{
    if (!information.hasPieces || !file) {
        const bool isRange = information.textEnd > information.textStart;
        return {{information.textStart, isRange ? information.textEnd - information.textStart : 0U, false}};
    }
    const auto byteCount = std::min<std::size_t>(information.pieceTableByteCount, kPieceTableByteLimit);
    const bool isUnicode = information.generation == WordFileInformation::Generation::Word97;
    return wordPieces(file->read(information.tableStream, information.pieceTableOffset, byteCount),
                      isUnicode ? WideText::ByPiece : WideText::Never);
}

/// Reads the document whose information block `readBytes` gives first. `file` is absent for the oldest files.
ReadResult readDocument(const ReadBytes& readBytes, CompoundFile* file, ContentSink& sink)
{
    const auto information = WordFileInformation::parse(readBytes(0, WordFileInformation::kByteCount));
    if (!information)
        return damaged("the file holds no Word document");
    if (information->isEncrypted)
        return {ContentStatus::Locked, "the document is encrypted"};
    const auto pieces = piecesOf(*information, file);
    if (pieces.empty())
        return damaged("the document's table of text is damaged");
    return readPieces(pieces, information->charsetName, readBytes, sink);
}

ReadResult readCompoundDocument(const SourceBytes& bytes, ContentSink& sink)
{
    auto file = CompoundFile::open(bytes);
    if (!file)
        return damaged("the document's container is damaged");
    if (file->hasStream("EncryptedPackage"))
        return {ContentStatus::Locked, "the document is encrypted"};
    const auto readStream = [&file](std::uint64_t offset, std::size_t byteCount) {
        return file->read(kDocumentStream, offset, byteCount);
    };
    return readDocument(readStream, &*file, sink);
}

bool holdsIgnoringCase(std::string_view text, std::string_view lowerCaseWord)
{
    const auto isSame = [](char left, char right) {
        return (left >= 'A' && left <= 'Z' ? static_cast<char>(left - 'A' + 'a') : left) == right;
    };
    return std::search(text.begin(), text.end(), lowerCaseWord.begin(), lowerCaseWord.end(), isSame)
        != text.end();
}

/// The type of a file that has Word's name but another content; empty when its bytes are no text either.
std::string_view typeOfForeignContent(std::string_view start)
{
    if (start.starts_with("{\\rtf"))
        return kUTTypeRTF;
    if (start.starts_with("PK\x03\x04"))
        return kUTTypeWordDocument;
    if (holdsIgnoringCase(start, "<html") || holdsIgnoringCase(start, "<!doctype html"))
        return holdsIgnoringCase(start, "mime-version:") ? kUTTypeEmailMessage : kUTTypeHTML;
    if (holdsIgnoringCase(start, "mime-version:"))
        return kUTTypeEmailMessage;
    return start.find('\0') == std::string_view::npos ? kUTTypePlainText : std::string_view();
}

ReadResult readForeignContent(const ContentSource& source, std::string_view start, ContentSink& sink)
{
    const auto type = typeOfForeignContent(start);
    if (type.empty())
        return damaged("the file is no Word document");
    if (start.find("<?xml") != std::string_view::npos && type == kUTTypePlainText)
        return readFlatWordprocessingDocument(source, sink);
    auto foreign = source;
    foreign.typeIdentifier = type;
    const auto depth = sink.containerDepth();
    sink.setContainerDepth(depth + 1);
    auto result = readContentInto(foreign, sink);
    sink.setContainerDepth(depth);
    return result;
}

} // namespace

ReadResult readLegacyWord(const ContentSource& source, ContentSink& sink)
{
    const auto bytes = SourceBytes::open(source);
    std::string start(kProbeByteCount, '\0');
    const auto count = bytes ? bytes->readAt(0, start) : std::nullopt;
    if (!count)
        return {ContentStatus::Unreadable, "the file cannot be read"};
    start.resize(*count);
    if (CompoundFile::isCompoundFile(start))
        return readCompoundDocument(*bytes, sink);
    if (!WordFileInformation::parse(start))
        return readForeignContent(source, start, sink);
    const auto readBytes = [&bytes](std::uint64_t offset, std::size_t byteCount) {
        std::string part(byteCount, '\0');
        part.resize(bytes->readAt(offset, part).value_or(0));
        return part;
    };
    return readDocument(readBytes, nullptr, sink);
}
