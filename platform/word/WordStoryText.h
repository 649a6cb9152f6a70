#pragma once

#include "platform/word/WordLinks.h"
#include "platform/word/WordLists.h"
#include "platform/word/WordPropertyReader.h"
#include "platform/word/WordSettings.h"
#include "platform/word/WordStyles.h"
#include "platform/word/WordTables.h"
#include "platform/word/WordTextBuilder.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// What all texts of a document are read with.
struct WordReading {
    const WordStyles& styles;
    const WordSettings& settings;
    WordLists& lists;
    WordTextAttributes& attributes;
    ContentSink& sink;
    /// The styles made so far, of which there is a bound.
    std::size_t paragraphStyleCount = 0;
};

/// One text of a document as it is put together: paragraphs, runs and tables in their order. Each call is
/// what an element begins or ends with; calls that do not fit what is open are taken for the nearest that
/// does.
class WordStoryText {
public:
    /// What is read with must outlive the text.
    explicit WordStoryText(WordReading& reading);

    void beginParagraph();
    /// The paragraph's properties, which come before its runs.
    void setParagraph(const WordPropertyReader& properties);
    /// Does nothing when no paragraph is open.
    void endParagraph();

    [[nodiscard]] bool isInParagraph() const { return m_isInParagraph; }

    void setRun(const WordPropertyReader& properties);
    void endRun();

    /// Text of the run; the paragraph is begun when none is open.
    void append(std::string_view text, const WordLink& link);
    void append(char16_t unit, const WordLink& link);
    void appendAttachment(const std::shared_ptr<NSTextAttachment>& attachment, const WordLink& link,
                          const std::string& description);
    /// A note's mark, raised.
    void appendMark(std::u16string_view mark);

    /// Formulas raise and lower their parts: 1, 0 or -1.
    void setRaised(int level) { m_raised = level; }

    /// Keeps a text that stands beside the paragraph, to follow it.
    void appendBehindParagraph(const NSAttributedString& text);

    [[nodiscard]] WordTables& tables() { return m_tables; }

    void beginTable();
    void endTable();
    void beginRow();
    void beginCell();
    void endCell();

    [[nodiscard]] NSUInteger length() const { return m_builder.length(); }

    /// All of it; what is still open ends.
    [[nodiscard]] const NSAttributedString& finish();

private:
    /// Finds how the paragraph looks and begins its list item, before its first character.
    void settle();
    void beginItem(const WordLists::Item& item);
    void resolveParagraph(const WordStyle* style);
    void resolveBase(const WordStyle* style);
    [[nodiscard]] const WordRunProperties& run();
    [[nodiscard]] WordTextLook lookWith(const WordLink& link);

    WordReading& m_reading;
    WordTextBuilder m_builder;
    WordTables m_tables;
    NSMutableAttributedString m_behind;

    bool m_isInParagraph = false;
    bool m_isSettled = false;
    bool m_isMarkDeleted = false;
    NSUInteger m_start = 0;
    std::string m_styleName;
    /// What the paragraph says itself; settled, all that holds for it.
    WordParagraphProperties m_properties;
    WordRunProperties m_markProperties;
    NSInteger m_headerLevel = 0;
    NSParagraphStyle::TextLists m_lists;
    NSParagraphStyle::Ref m_lastStyle;
    /// What runs of the paragraph look like that say nothing, and what the open one does.
    WordRunProperties m_base;
    WordRunProperties m_run;
    bool m_isRunResolved = false;
    std::string m_runStyleName;
    WordRunProperties m_runProperties;
    int m_raised = 0;
};
