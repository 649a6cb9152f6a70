#include "platform/html/HTMLText.h"

#include "platform/foundation/TextDecoder.h"
#include "platform/foundation/TextEncoding.h"
#include "platform/foundation/Unicode.h"
#include "platform/html/HTMLElements.h"
#include "platform/html/HTMLTokenizer.h"

#include <algorithm>
#include <cassert>
#include <optional>
#include <utility>

namespace {

constexpr std::size_t kChunkByteCount = std::size_t{64} << 10;
constexpr std::size_t kTitleByteCount = 4096;
constexpr std::string_view kNoBreakSpace = "\xC2\xA0";
constexpr std::string_view kSoftHyphen = "\xC2\xAD";

/// What has to stand before the next word. A stronger one takes a weaker one's place.
enum class Separator {
    None,
    Space,
    Tab,
    Line,
};

/// The number of bytes of the white space at the start of `text`, a no-break space included.
std::size_t blankLength(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\n\r\f";
    if (text.empty())
        return 0;
    if (kBlanks.find(text.front()) != std::string_view::npos)
        return 1;
    return text.starts_with(kNoBreakSpace) ? kNoBreakSpace.size() : 0;
}

/// The number of bytes before the next white space or soft hyphen.
std::size_t wordLength(std::string_view text)
{
    for (std::size_t end = 0;; ++end) {
        end = std::min(text.find_first_of(" \t\n\r\f\xC2", end), text.size());
        const auto rest = text.substr(end);
        if (rest.empty() || blankLength(rest) > 0 || rest.starts_with(kSoftHyphen))
            return end;
    }
}

/// Puts words and separators together and hands them over in large pieces.
class TextAssembler {
public:
    explicit TextAssembler(const HTMLTextReceiver& receiver)
        : m_receiver(receiver)
    {
    }

    void separate(Separator separator) { m_separator = std::max(m_separator, separator); }

    void addCollapsed(std::string_view text)
    {
        while (!text.empty()) {
            if (const auto blanks = blankLength(text); blanks > 0) {
                separate(Separator::Space);
                text.remove_prefix(blanks);
                continue;
            }
            const auto length = wordLength(text);
            add(text.substr(0, length));
            text.remove_prefix(length);
            if (text.starts_with(kSoftHyphen))
                text.remove_prefix(kSoftHyphen.size());
        }
    }

    void addPreformatted(std::string_view text)
    {
        // The line that an element of its own lines begins is the one that its text may begin with.
        if (m_separator == Separator::Line && text.starts_with('\n'))
            text.remove_prefix(1);
        add(text);
    }

    void finish()
    {
        if (!m_buffer.empty() && !m_isFull)
            m_isFull = !m_receiver(m_buffer);
        m_buffer.clear();
    }

    [[nodiscard]] bool isFull() const { return m_isFull; }

private:
    void add(std::string_view text)
    {
        if (text.empty())
            return;
        writeSeparator();
        m_buffer.append(text);
        m_lastByte = text.back();
        if (m_buffer.size() >= kChunkByteCount)
            finish();
    }

    void writeSeparator()
    {
        const auto separator = std::exchange(m_separator, Separator::None);
        if (m_lastByte == '\n' || separator == Separator::None)
            return;
        if (separator == Separator::Line)
            m_buffer += '\n';
        else if (m_lastByte != ' ' && m_lastByte != '\t')
            m_buffer += separator == Separator::Tab ? '\t' : ' ';
    }

    const HTMLTextReceiver& m_receiver;
    std::string m_buffer;
    Separator m_separator = Separator::None;
    /// Nothing has to be put before the first word, as at the start of any line.
    char m_lastByte = '\n';
    bool m_isFull = false;
};

class TextRenderer final : public HTMLTokenHandler {
public:
    explicit TextRenderer(TextAssembler& assembler)
        : m_assembler(assembler)
    {
    }

    void text(std::string_view text) override
    {
        if (m_isInTitle)
            m_title.append(
                prefixAtCharacterBorder(text, kTitleByteCount - std::min(kTitleByteCount, m_title.size())));
        else if (m_preformattedDepth > 0)
            m_assembler.addPreformatted(text);
        else
            m_assembler.addCollapsed(text);
    }

    void startTag(const HTMLTag& tag) override
    {
        separate(tag.name);
        if (layoutOfElement(tag.name) == HTMLLayout::Preformatted && !tag.isSelfClosing)
            ++m_preformattedDepth;
        if (tag.name == "title" && !tag.isSelfClosing && !m_hasTitle)
            m_isInTitle = true;
        addReplacementText(tag);
    }

    void endTag(std::string_view name) override
    {
        separate(name);
        if (layoutOfElement(name) == HTMLLayout::Preformatted && m_preformattedDepth > 0)
            --m_preformattedDepth;
        if (name == "title" && m_isInTitle) {
            m_isInTitle = false;
            m_hasTitle = true;
        }
    }

    [[nodiscard]] std::string title() const
    {
        std::string collapsed;
        const HTMLTextReceiver appendTo = [&collapsed](std::string_view piece) {
            collapsed.append(piece);
            return true;
        };
        TextAssembler assembler(appendTo);
        assembler.addCollapsed(m_title);
        assembler.finish();
        return collapsed;
    }

private:
    void separate(std::string_view elementName)
    {
        switch (layoutOfElement(elementName)) {
        case HTMLLayout::Inline:
            return;
        case HTMLLayout::Cell:
            return m_assembler.separate(Separator::Tab);
        case HTMLLayout::LineBreak:
            if (m_preformattedDepth > 0)
                m_assembler.addPreformatted("\n");
            return m_assembler.separate(Separator::Line);
        case HTMLLayout::Block:
        case HTMLLayout::Preformatted:
            return m_assembler.separate(Separator::Line);
        }
    }

    /// What stands in a picture's place for those who don't see it.
    void addReplacementText(const HTMLTag& tag)
    {
        if (tag.name != "img" && tag.name != "area" && tag.name != "input")
            return;
        const auto description = tag.attribute("alt");
        const auto title = tag.attribute("title");
        addWords(description);
        if (title != description)
            addWords(title);
    }

    void addWords(std::string_view words)
    {
        if (words.empty())
            return;
        m_assembler.separate(Separator::Space);
        m_assembler.addCollapsed(words);
        m_assembler.separate(Separator::Space);
    }

    TextAssembler& m_assembler;
    std::string m_title;
    std::size_t m_preformattedDepth = 0;
    bool m_isInTitle = false;
    bool m_hasTitle = false;
};

// A page that has been taken for one in bytes is in no encoding of wider units, whatever is said of it.
bool readsASCII(TextDecoder& decoder)
{
    constexpr std::string_view kProbe = "<html>";
    std::string text;
    decoder.append(kProbe, text);
    decoder.finish(text);
    return text == kProbe;
}

std::optional<TextDecoder> decoderForPage(std::string_view& bytes, std::string_view charsetName)
{
    const auto found = textEncodingForBytes(bytes);
    bytes.remove_prefix(found.markLength);
    auto given = found.markLength > 0 ? std::nullopt : TextDecoder::createWithCharset(charsetName);
    return given && readsASCII(*given) ? std::move(given) : TextDecoder::createWithCharset(found.name);
}

} // namespace

std::string renderHTMLText(std::string_view bytes, std::string_view charsetName,
                           const HTMLTextReceiver& receiver)
{
    auto decoder = decoderForPage(bytes, charsetName);
    assert(decoder);
    TextAssembler assembler(receiver);
    TextRenderer renderer(assembler);
    HTMLTokenizer tokenizer(renderer);
    std::string text;
    while (!bytes.empty() && !assembler.isFull()) {
        const auto chunk = bytes.substr(0, kChunkByteCount);
        bytes.remove_prefix(chunk.size());
        text.clear();
        decoder->append(chunk, text);
        if (bytes.empty())
            decoder->finish(text);
        tokenizer.append(text);
    }
    tokenizer.finish();
    assembler.finish();
    return renderer.title();
}
