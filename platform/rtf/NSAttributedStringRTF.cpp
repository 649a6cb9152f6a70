#include "platform/rtf/NSAttributedStringRTF.h"

#include "platform/rtf/RTFLimits.h"
#include "platform/rtf/RTFPackage.h"
#include "platform/rtf/RTFReader.h"
#include "platform/rtf/RTFWriter.h"
#include "platform/text/NSDocumentAttributes.h"

namespace {

bool isOfType(const NSAny::Dictionary& attributes, std::u16string_view type, NSError* error)
{
    const auto found = attributes.find(NSDocumentTypeDocumentAttribute);
    if (found == attributes.end() || (found->second.string() && *found->second.string() == type))
        return true;
    setError(error,
             NSError::errorWithCode(NSCocoaError::FileWriteInapplicableStringEncoding,
                                    "rich text is written as rich text only"));
    return false;
}

RTFListMarkerText markersOf(const NSAttributedStringDocumentFormats::NSRTFReadingOptions& options)
{
    if (!options.textKit1ListMarkerFormat)
        return RTFListMarkerText::Dropped;
    return options.putsTabsAroundListMarkers ? RTFListMarkerText::BetweenTabs : RTFListMarkerText::AsWritten;
}

std::optional<NSAttributedString>
readDocument(std::string_view bytes, std::u16string_view documentType, const RTFMemberFinder& findMember,
             NSAny::Dictionary* documentAttributes, NSError* error,
             const NSAttributedStringDocumentFormats::NSRTFReadingOptions& options)
{
    if (bytes.size() > kMostRTFBytes) {
        setError(error, NSError::errorWithCode(NSCocoaError::FileReadTooLarge, "the rich text is too large"));
        return std::nullopt;
    }
    auto document = readRTFDocument(bytes, markersOf(options), findMember);
    if (!document) {
        setError(error,
                 NSError::errorWithCode(NSCocoaError::FileReadCorruptFile, "the bytes are no rich text"));
        return std::nullopt;
    }
    document->attributes.insert_or_assign(std::u16string(NSDocumentTypeDocumentAttribute),
                                          NSAny(documentType));
    if (documentAttributes)
        *documentAttributes = std::move(document->attributes);
    return std::move(document->text);
}

} // namespace

std::optional<NSAttributedString>
NSAttributedStringDocumentFormats::initWithRTF(const NSData& data, NSAny::Dictionary* documentAttributes,
                                               NSError* error, const NSRTFReadingOptions& options)
{
    const auto noMembers = [](std::string_view /*name*/) { return NSFileWrapper::Ref(); };
    return readDocument(data.bytes, NSRTFTextDocumentType, noMembers, documentAttributes, error, options);
}

std::optional<NSData>
NSAttributedStringDocumentFormats::RTFFromRange(const NSAttributedString& text, NSRange range,
                                                const NSAny::Dictionary& documentAttributes, NSError* error)
{
    if (!isOfType(documentAttributes, NSRTFTextDocumentType, error))
        return std::nullopt;
    const auto noAttachments = [](const auto& /*attachment*/) { return std::string(); };
    return NSData{rtfDocument(text, range, documentAttributes, noAttachments)};
}

NSFileWrapper::Ref
NSAttributedStringDocumentFormats::RTFDFileWrapperFromRange(const NSAttributedString& text, NSRange range,
                                                            const NSAny::Dictionary& documentAttributes,
                                                            NSError* error)
{
    if (!isOfType(documentAttributes, NSRTFDTextDocumentType, error))
        return nullptr;
    RTFPackageBuilder package;
    const RTFAttachmentNamer nameOf
        = [&package](const auto& attachment) { return package.nameOf(*attachment); };
    return package.finish(rtfDocument(text, range, documentAttributes, nameOf));
}

std::optional<NSData>
NSAttributedStringDocumentFormats::RTFDFromRange(const NSAttributedString& text, NSRange range,
                                                 const NSAny::Dictionary& documentAttributes, NSError* error)
{
    const auto package = RTFDFileWrapperFromRange(text, range, documentAttributes, error);
    return package ? package->serializedRepresentation(error) : std::nullopt;
}

std::optional<NSAttributedString>
NSAttributedStringDocumentFormats::initWithRTFDFileWrapper(const NSFileWrapper& fileWrapper,
                                                           NSAny::Dictionary* documentAttributes,
                                                           NSError* error, const NSRTFReadingOptions& options)
{
    const auto document = fileWrapper.fileWrapperForKey(kRTFDDocumentName);
    const auto* const contents = document ? document->regularFileContents() : nullptr;
    if (!contents) {
        setError(error,
                 NSError::errorWithCode(NSCocoaError::FileReadCorruptFile,
                                        "the package has no document \"TXT.rtf\""));
        return std::nullopt;
    }
    const RTFPackageMembers members(fileWrapper);
    const auto findMember = [&members](std::string_view name) { return members.memberNamed(name); };
    return readDocument(contents->bytes, NSRTFDTextDocumentType, findMember, documentAttributes, error,
                        options);
}

std::optional<NSAttributedString>
NSAttributedStringDocumentFormats::initWithRTFD(const NSData& data, NSAny::Dictionary* documentAttributes,
                                                NSError* error, const NSRTFReadingOptions& options)
{
    const auto package = NSFileWrapper::initWithSerializedRepresentation(data.bytes, error);
    return package ? initWithRTFDFileWrapper(*package, documentAttributes, error, options) : std::nullopt;
}
