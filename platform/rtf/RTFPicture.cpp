#include "platform/rtf/RTFPicture.h"

namespace {

std::int32_t digitValue(char byte)
{
    if (byte >= '0' && byte <= '9')
        return byte - '0';
    if (byte >= 'a' && byte <= 'f')
        return byte - 'a' + 10;
    return byte >= 'A' && byte <= 'F' ? byte - 'A' + 10 : -1;
}

} // namespace

bool RTFPicture::takeWord(std::string_view name)
{
    if (name == "pngblip")
        m_kind = Kind::PNG;
    else if (name == "jpegblip")
        m_kind = Kind::JPEG;
    else
        return false;
    return true;
}

void RTFPicture::takeText(std::string_view text)
{
    if (m_kind == Kind::Unknown)
        return;
    for (const char byte : text) {
        const auto digit = digitValue(byte);
        if (digit < 0)
            continue;
        if (m_upperDigit < 0) {
            m_upperDigit = digit;
            continue;
        }
        m_data += static_cast<char>(m_upperDigit * 16 + digit);
        m_upperDigit = -1;
    }
}

void RTFPicture::takeBinary(std::string_view data)
{
    if (m_kind != Kind::Unknown)
        m_data += data;
}

std::string_view RTFPicture::fileExtension() const
{
    if (m_data.empty() || m_kind == Kind::Unknown)
        return {};
    return m_kind == Kind::PNG ? "png" : "jpeg";
}
