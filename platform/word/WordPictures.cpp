#include "platform/word/WordPictures.h"

#include "platform/foundation/Unicode.h"

namespace {

constexpr std::size_t kMostPictures = 20'000;

NSFileWrapper::Ref fileOf(std::string bytes, std::string_view member)
{
    auto file = NSFileWrapper::initRegularFileWithContents(NSData{std::move(bytes)});
    const auto name = UTF16FromUTF8(member.substr(member.rfind('/') + 1));
    file->setPreferredFilename(name);
    file->setFilename(name);
    return file;
}

} // namespace

std::shared_ptr<NSTextAttachment> WordPictures::attachment(const std::string& member, NSSize size)
{
    if (m_count >= kMostPictures)
        return nullptr;
    ++m_count;
    auto attachment = std::make_shared<NSTextAttachment>();
    if (size.width > 0 && size.height > 0)
        attachment->setBounds(NSMakeRect(0, 0, size.width, size.height));
    m_attachments[member].push_back(attachment);
    return attachment;
}

void WordPictures::load(OfficePackage& package, ContentSink& sink)
{
    auto room = sink.limits().wholeFileBytes;
    for (const auto& [member, attachments] : m_attachments) {
        auto bytes = package.bytesOf(member, room);
        if (!bytes) {
            sink.noteCut("pictures that could not be read were left out");
            continue;
        }
        room -= bytes->size();
        const auto file = fileOf(std::move(*bytes), member);
        for (const auto& attachment : attachments)
            attachment->setFileWrapper(file);
    }
}
