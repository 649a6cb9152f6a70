#pragma once

#include "platform/foundation/NSRange.h"
#include "platform/word/WordPropertyReader.h"

#include <array>
#include <map>
#include <optional>
#include <string>

/// The lists that a document defines.

enum class WordNumberFormat {
    Bullet,
    None,
    Decimal,
    /// With a zero in front below ten.
    DecimalZero,
    LowerLetter,
    UpperLetter,
    LowerRoman,
    UpperRoman,
};

struct WordListLevel {
    WordNumberFormat format = WordNumberFormat::Decimal;
    NSInteger start = 1;
    /// With "%1" to "%9" where the numbers of the levels stand.
    std::u16string text;
    /// A level counts anew after each item of this level or of one further out; -1 for never, none for the
    /// next one further out.
    std::optional<int> restartsAfter;
    /// Numbers of levels further out are decimal, whatever their own format.
    bool isLegal = false;
    WordParagraphProperties paragraph;
    WordRunProperties run;
};

inline constexpr std::size_t kWordListLevelCount = 9;

using WordListLevels = std::array<WordListLevel, kWordListLevelCount>;

/// One list, as paragraphs ask for it. Several may share an abstract one, and then count on.
struct WordList {
    int abstractIdentifier = 0;
    std::array<std::optional<NSInteger>, kWordListLevelCount> startOverrides;
    std::map<std::size_t, WordListLevel> levelOverrides;
};

class WordNumbering {
public:
    /// Null for a number that no list has, 0 among them.
    [[nodiscard]] const WordList* list(int number) const;
    /// Of a list of this document.
    [[nodiscard]] const WordListLevel& level(const WordList& list, std::size_t level) const;

private:
    friend class WordNumberingHandler;

    std::map<int, WordListLevels> m_abstractLists;
    std::map<int, WordList> m_lists;
};

class WordStyles;

/// Reads a numbering part. Numbering and theme must outlive the handler. Lists beyond a bound are not kept.
class WordNumberingHandler final : public XMLHandler {
public:
    WordNumberingHandler(WordNumbering& numbering, const WordTheme& theme)
        : m_numbering(numbering)
        , m_properties(theme)
    {
    }

    void startElement(std::string_view localName, const XMLAttributes& attributes) override;
    void endElement(std::string_view localName) override;

    /// Gives lists that only name a style the levels of the list that the style names. To be called once.
    void resolve(const WordStyles& styles);

private:
    void beginAbstractList(const XMLAttributes& attributes);
    void beginList(const XMLAttributes& attributes);
    void beginLevel(const XMLAttributes& attributes);
    void readLevelElement(std::string_view localName, const XMLAttributes& attributes);
    void endLevel();

    WordNumbering& m_numbering;
    WordPropertyReader m_properties;
    WordListLevels* m_abstractList = nullptr;
    int m_abstractIdentifier = 0;
    WordList* m_list = nullptr;
    std::optional<std::size_t> m_level;
    std::size_t m_overriddenLevel = 0;
    WordListLevel m_current;
    std::map<int, std::string> m_styleLinks;
};
