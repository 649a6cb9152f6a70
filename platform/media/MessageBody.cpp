#include "platform/media/MessageBody.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/HTMLText.h"
#include "platform/media/ContentLimits.h"
#include "platform/media/MIMEEntity.h"
#include "platform/media/PartText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr ContentLimits kLimits;
constexpr std::string_view kBlanks = " \t\r\n\f\v";

bool isHTML(std::string_view mimeType)
{
    return mimeType == "text/html" || mimeType == "application/xhtml+xml";
}

// The lower, the better a part of a multipart/alternative stands for all of them.
int alternativeRank(const MIMEEntity& part)
{
    const auto& mimeType = part.contentType.mimeType;
    if (mimeType == "text/plain")
        return 0;
    if (isHTML(mimeType))
        return 1;
    return part.parts.empty() ? 3 : 2;
}

class BodyRenderer {
public:
    void render(const MIMEEntity& entity)
    {
        if (isFull())
            return;
        if (entity.isMessage())
            renderMessage(entity.parts.front());
        else if (entity.contentType.mimeType == "multipart/alternative" && !entity.parts.empty())
            renderAlternatives(entity);
        else if (!entity.parts.empty())
            renderParts(entity);
        else if (isBodyText(entity))
            renderText(entity);
    }

    [[nodiscard]] std::string takeText() { return std::move(m_text); }

private:
    void renderParts(const MIMEEntity& entity)
    {
        for (const auto& part : entity.parts) {
            breakLine();
            render(part);
        }
    }

    void renderAlternatives(const MIMEEntity& entity)
    {
        std::vector<const MIMEEntity*> candidates;
        for (const auto& part : entity.parts)
            candidates.push_back(&part);
        std::stable_sort(candidates.begin(), candidates.end(), [](const auto* left, const auto* right) {
            return alternativeRank(*left) < alternativeRank(*right);
        });
        const auto start = m_text.size();
        for (const auto* candidate : candidates) {
            render(*candidate);
            if (m_text.find_first_not_of(kBlanks, start) != std::string::npos)
                return;
            m_text.resize(start);
        }
    }

    void renderMessage(const MIMEEntity& message)
    {
        breakLine();
        for (const auto& [name, label] : {std::pair("from", "From: "), std::pair("to", "To: "),
                                          std::pair("cc", "Cc: "), std::pair("subject", "Subject: ")}) {
            for (const auto value : message.header.values(name)) {
                append(label + decodedFieldText(value));
                breakLine();
            }
        }
        render(message);
    }

    void renderText(const MIMEEntity& entity)
    {
        const auto bytes = entity.decodedBody(kLimits.textBytes);
        if (!isHTML(entity.contentType.mimeType)) {
            append(textOfPlainPart(bytes, entity.contentType));
            return;
        }
        const auto charset = charsetForPart(bytes, entity.contentType.charset);
        (void)renderHTMLText(bytes, charset, [this](std::string_view piece) { // Mail programs show no title.
            append(piece);
            return !isFull();
        });
    }

    void append(std::string_view text)
    {
        const auto room = kLimits.textBytes - std::min(kLimits.textBytes, m_text.size());
        m_text.append(prefixAtCharacterBorder(text, room));
        m_isFull = m_isFull || text.size() > room;
    }

    void breakLine()
    {
        if (!m_text.empty() && m_text.back() != '\n')
            append("\n");
    }

    [[nodiscard]] bool isFull() const { return m_isFull; }

    std::string m_text;
    bool m_isFull = false;
};

} // namespace

std::string renderedBody(const MIMEEntity& entity)
{
    BodyRenderer renderer;
    renderer.render(entity);
    return renderer.takeText();
}

bool isBodyText(const MIMEEntity& entity)
{
    const auto& type = entity.contentType;
    if (entity.isMessage() || (entity.disposition.isAttachment && !entity.filename().empty()))
        return false;
    // A multipart or message that could not be taken apart is shown as it is.
    if (type.isMultipart() || type.mimeType.starts_with("message/") || isHTML(type.mimeType))
        return true;
    return type.mimeType.starts_with("text/") && type.mimeType != "text/rtf";
}

std::string strippedText(std::string_view text)
{
    std::string stripped;
    stripped.reserve(text.size());
    while (!text.empty()) {
        const auto wordStart = std::min(text.find_first_not_of(kBlanks), text.size());
        const auto blanks = text.substr(0, wordStart);
        text.remove_prefix(wordStart);
        if (text.empty())
            break;
        if (!stripped.empty())
            stripped += blanks.find('\n') == std::string_view::npos ? ' ' : '\n';
        const auto wordEnd = std::min(text.find_first_of(kBlanks), text.size());
        stripped.append(text.substr(0, wordEnd));
        text.remove_prefix(wordEnd);
    }
    return stripped;
}
