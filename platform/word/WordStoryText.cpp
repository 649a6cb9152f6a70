#include "platform/word/WordStoryText.h"

#include "platform/foundation/Unicode.h"
#include "platform/word/WordCapitals.h"
#include "platform/word/WordParagraphStyle.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int kOutlineLevelCount = 9;
/// Each costs memory for as long as the text lives. Paragraphs beyond them are set as those before.
constexpr std::size_t kMostParagraphStyles = 200'000;

} // namespace

WordStoryText::WordStoryText(WordReading& reading)
    : m_reading(reading)
    , m_builder(reading.sink, reading.attributes)
    , m_tables(m_builder, reading.styles, reading.sink)
{
}

void WordStoryText::beginParagraph()
{
    endParagraph();
    m_isInParagraph = true;
    m_isSettled = false;
    m_isMarkDeleted = false;
    m_start = m_builder.length();
    m_styleName.clear();
    m_properties = {};
    m_markProperties = {};
}

void WordStoryText::setParagraph(const WordPropertyReader& properties)
{
    if (!m_isInParagraph || m_isSettled)
        return;
    m_styleName = properties.paragraphStyle();
    m_properties = properties.paragraph();
    m_markProperties = properties.run();
    m_isMarkDeleted = properties.isMarkDeleted();
}

void WordStoryText::settle()
{
    if (!m_isInParagraph)
        beginParagraph();
    if (m_isSettled)
        return;
    m_isSettled = true;
    const auto* style = m_reading.styles.style(m_styleName);
    if (!style)
        style = m_reading.styles.defaultParagraphStyle();
    resolveBase(style);
    resolveParagraph(style);
}

void WordStoryText::resolveBase(const WordStyle* style)
{
    m_base = m_reading.styles.defaults().run;
    if (const auto* const table = m_tables.style())
        m_base.combineWith(table->run);
    if (style)
        m_base.combineWith(style->run);
    m_isRunResolved = false;
}

void WordStoryText::resolveParagraph(const WordStyle* style)
{
    const auto own = std::exchange(m_properties, m_reading.styles.defaults().paragraph);
    if (const auto* const table = m_tables.style())
        m_properties.overrideWith(table->paragraph);
    if (style)
        m_properties.overrideWith(style->paragraph);
    const auto number = own.listNumber ? own.listNumber : m_properties.listNumber;
    const auto level = own.listLevel.value_or(m_properties.listLevel.value_or(0));
    const auto item = m_reading.lists.nextItem(number.value_or(0), level);
    if (item) {
        // Where the style has the list, its own indents go before those of the list's levels.
        const auto styled = m_properties;
        m_properties.overrideWith(item->level->paragraph);
        if (!own.listNumber && style && style->paragraph.leftIndent)
            m_properties.overrideWith(styled);
    }
    m_properties.overrideWith(own);
    const auto outline = m_properties.outlineLevel;
    if (outline)
        m_headerLevel = *outline >= 0 && *outline < kOutlineLevelCount ? *outline + 1 : 0;
    else
        m_headerLevel = style ? style->headingLevel : 0;
    m_lists.clear();
    if (item && !item->marker.empty())
        beginItem(*item);
}

void WordStoryText::beginItem(const WordLists::Item& item)
{
    WordTextLook look{m_base, {}, {}};
    look.properties.overrideWith(m_markProperties);
    auto own = item.level->run;
    // The signs of symbol fonts have become characters that every font has.
    if (item.level->format == WordNumberFormat::Bullet) {
        own.family.reset();
        own.eastAsianFamily.reset();
        own.complexFamily.reset();
    }
    look.properties.overrideWith(own);
    m_builder.append(u'\t', look);
    m_builder.append(UTF8FromUTF16(item.marker), look);
    m_builder.append(u'\t', look);
    m_lists = item.lists;
}

void WordStoryText::endParagraph()
{
    if (!m_isInParagraph)
        return;
    // A change took the paragraph with all it held.
    if (m_isMarkDeleted && !m_isSettled) {
        m_isInParagraph = false;
        return;
    }
    settle();
    WordTextLook look{m_base, {}, {}};
    look.properties.overrideWith(m_markProperties);
    auto style = wordParagraphStyle(m_properties, m_headerLevel, m_lists, m_reading.settings.tabInterval);
    const bool isNew = !m_lastStyle || !m_lastStyle->isEqual(style);
    if (isNew && m_reading.paragraphStyleCount < kMostParagraphStyles) {
        ++m_reading.paragraphStyleCount;
        m_lastStyle = style.copy();
    }
    if (!m_lastStyle)
        m_lastStyle = NSParagraphStyle::defaultParagraphStyle();
    m_builder.endParagraph(m_start, m_lastStyle, look);
    m_isInParagraph = false;
    if (m_behind.length() > 0)
        m_builder.appendText(std::exchange(m_behind, {}));
}

void WordStoryText::setRun(const WordPropertyReader& properties)
{
    m_isRunResolved = false;
    m_runStyleName = properties.runStyle();
    m_runProperties = properties.run();
}

void WordStoryText::endRun()
{
    m_isRunResolved = false;
    m_runStyleName.clear();
    m_runProperties = {};
}

const WordRunProperties& WordStoryText::run()
{
    if (m_isRunResolved)
        return m_run;
    m_isRunResolved = true;
    m_run = m_base;
    if (const auto* const style = m_reading.styles.style(m_runStyleName))
        m_run.combineWith(style->run);
    m_run.overrideWith(m_runProperties);
    return m_run;
}

WordTextLook WordStoryText::lookWith(const WordLink& link)
{
    WordTextLook look{run(), link.address, link.toolTip};
    if (m_raised != 0)
        look.properties.superscript = m_raised;
    return look;
}

void WordStoryText::append(std::string_view text, const WordLink& link)
{
    settle();
    const auto look = lookWith(link);
    if (look.properties.hasCapitals.value_or(false))
        m_builder.append(inWordCapitals(text), look);
    else
        m_builder.append(text, look);
}

void WordStoryText::append(char16_t unit, const WordLink& link)
{
    settle();
    m_builder.append(unit, lookWith(link));
}

void WordStoryText::appendAttachment(const std::shared_ptr<NSTextAttachment>& attachment,
                                     const WordLink& link, const std::string& description)
{
    settle();
    auto look = lookWith(link);
    if (look.toolTip.empty())
        look.toolTip = description;
    m_builder.appendAttachment(attachment, look);
}

void WordStoryText::appendMark(std::u16string_view mark)
{
    if (mark.empty())
        return;
    settle();
    WordTextLook look{run(), {}, {}};
    look.properties.superscript = 1;
    look.properties.baselineOffset.reset();
    m_builder.append(UTF8FromUTF16(mark), look);
}

void WordStoryText::appendBehindParagraph(const NSAttributedString& text)
{
    if (m_isInParagraph)
        m_behind.appendAttributedString(text);
    else
        m_builder.appendText(text);
}

void WordStoryText::beginTable()
{
    endParagraph();
    m_tables.beginTable();
}

void WordStoryText::beginRow()
{
    endParagraph();
    m_tables.beginRow();
}

void WordStoryText::beginCell()
{
    endParagraph();
    m_tables.beginCell();
}

void WordStoryText::endCell()
{
    endParagraph();
    if (m_tables.isCellEmpty()) {
        beginParagraph();
        endParagraph();
    }
    m_tables.endCell();
}

void WordStoryText::endTable()
{
    endParagraph();
    m_tables.endTable();
}

const NSAttributedString& WordStoryText::finish()
{
    endParagraph();
    while (m_tables.isOpen()) {
        endCell();
        endTable();
    }
    return m_builder.text();
}
