#include "platform/word/WordPictureWriting.h"

#include "platform/media/ImageHeader.h"
#include "platform/word/WordUnits.h"

#include <algorithm>

namespace {

/// The longest side there is: that of the largest paper.
constexpr std::int64_t kMostSide = kMostWordTwips * 635;
/// The side of a picture that does not say how large it is.
constexpr double kUsualSide = 144;

struct FileForm {
    std::string_view extension;
    std::string_view type;
};

FileForm formOf(ImageKind kind)
{
    switch (kind) {
    case ImageKind::JPEG:
        return {"jpeg", "image/jpeg"};
    case ImageKind::GIF:
        return {"gif", "image/gif"};
    case ImageKind::TIFF:
        return {"tiff", "image/tiff"};
    case ImageKind::BMP:
        return {"bmp", "image/bmp"};
    case ImageKind::WebP:
        return {"webp", "image/webp"};
    case ImageKind::SVG:
        return {"svg", "image/svg+xml"};
    case ImageKind::PNG:
        break;
    }
    return {"png", "image/png"};
}

/// Empty when there are none.
std::string_view bytesOf(const NSTextAttachment& attachment)
{
    if (attachment.fileWrapper()) {
        const auto* const contents = attachment.fileWrapper()->regularFileContents();
        return contents ? std::string_view(contents->bytes) : std::string_view();
    }
    return attachment.contents() ? std::string_view(attachment.contents()->bytes) : std::string_view();
}

std::u16string nameOf(const NSTextAttachment& attachment)
{
    const auto& file = attachment.fileWrapper();
    if (!file)
        return {};
    return file->preferredFilename() ? *file->preferredFilename()
                                     : file->filename().value_or(std::u16string());
}

bool isPositive(NSSize size)
{
    return size.width > 0 && size.height > 0;
}

} // namespace

struct WordPictureWriting::Picture {
    std::string relationship;
    ImageKind kind;
    NSSize size;
    std::u16string name;
    std::u16string_view description;
};

void WordPictureWriting::write(WordXML& xml, const NSTextAttachment& attachment,
                               std::u16string_view description)
{
    const auto bytes = bytesOf(attachment);
    auto name = nameOf(attachment);
    const auto header = imageHeader(bytes);
    if (header) {
        const auto form = formOf(header->kind);
        m_types.emplace(form.extension, form.type);
        writePicture(xml,
                     {relationshipOf(bytes, form.extension), header->kind,
                      sizeFor(attachment, header->pixelSize), std::move(name), description});
    } else if (!name.empty()) {
        xml.raw("<w:t xml:space=\"preserve\">");
        xml.text(name);
        xml.raw("</w:t>");
    }
}

NSSize WordPictureWriting::sizeFor(const NSTextAttachment& attachment, NSSize pixelSize) const
{
    if (isPositive(attachment.bounds().size))
        return attachment.bounds().size;
    if (!isPositive(pixelSize))
        return {kUsualSide, kUsualSide};
    const auto factor = std::min(1.0, m_textWidth / pixelSize.width);
    return {pixelSize.width * factor, pixelSize.height * factor};
}

std::string WordPictureWriting::relationshipOf(std::string_view bytes, std::string_view extension)
{
    auto& identifier = m_identifiers[bytes.data()];
    if (!identifier.empty())
        return identifier;
    auto name = "media/image" + std::to_string(m_members.size() + 1) + '.';
    name += extension;
    identifier = m_relationships.add("image", name);
    m_members.push_back({"word/" + name, bytes});
    return identifier;
}

void WordPictureWriting::writePicture(WordXML& xml, const Picture& picture)
{
    const auto side
        = [](double points) { return wordUnits(points * kWordDrawingUnitsPerPoint, 1, kMostSide); };
    const auto writeSides = [&](std::string_view element) {
        xml.raw(element);
        xml.attribute("cx", side(picture.size.width));
        xml.attribute("cy", side(picture.size.height));
        xml.raw("/>");
    };
    const auto writeNames = [&](std::string_view element) {
        xml.raw(element);
        xml.attribute("id", m_count);
        xml.attribute("name", std::u16string_view(picture.name));
        if (!picture.description.empty())
            xml.attribute("descr", picture.description);
        xml.raw("/>");
    };
    ++m_count;
    xml.raw("<w:drawing><wp:inline distT=\"0\" distB=\"0\" distL=\"0\" distR=\"0\">");
    writeSides("<wp:extent");
    writeNames("<wp:docPr");
    xml.raw("<a:graphic><a:graphicData uri=\"http://schemas.openxmlformats.org/drawingml/2006/picture\">"
            "<pic:pic><pic:nvPicPr>");
    writeNames("<pic:cNvPr");
    xml.raw("<pic:cNvPicPr/></pic:nvPicPr><pic:blipFill>");
    if (picture.kind == ImageKind::SVG) {
        // Word processors that know drawings look here; a picture of pixels to stand for it there is none.
        xml.raw("<a:blip><a:extLst><a:ext uri=\"{96DAC541-7B7A-43D3-8B79-37D633B846F1}\"><asvg:svgBlip");
        xml.attribute("r:embed", std::string_view(picture.relationship));
        xml.raw("/></a:ext></a:extLst></a:blip>");
    } else {
        xml.raw("<a:blip");
        xml.attribute("r:embed", std::string_view(picture.relationship));
        xml.raw("/>");
    }
    xml.raw("<a:stretch><a:fillRect/></a:stretch></pic:blipFill><pic:spPr><a:xfrm><a:off x=\"0\" y=\"0\"/>");
    writeSides("<a:ext");
    xml.raw("</a:xfrm><a:prstGeom prst=\"rect\"><a:avLst/></a:prstGeom></pic:spPr></pic:pic></a:graphicData>"
            "</a:graphic></wp:inline></w:drawing>");
}
