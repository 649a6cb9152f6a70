#pragma once

#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "colours/HighlightColours.h"
#include "tests/note/NotePackages.h"

#include <memory>
#include <random>
#include <string>

/// A text of everything that notes hold, in the form in which it is shown.
class RandomNote {
public:
    explicit RandomNote(unsigned seed)
        : m_random(seed)
    {
    }

    NSMutableAttributedString text(unsigned pieceCount)
    {
        NoteText text;
        for (unsigned piece = 0; piece < pieceCount; ++piece)
            addPiece(text);
        // A divider that ends the note would come back as text.
        return text.add(u"end", colored()).text();
    }

private:
    unsigned below(unsigned count) { return static_cast<unsigned>(m_random() % count); }

    static NSAttributes colored(NSAttributes attributes = {})
    {
        attributes.try_emplace(std::u16string(NSForegroundColorAttributeName), NSColor::textColor());
        return attributes;
    }

    std::u16string characters()
    {
        constexpr std::u16string_view kCharacters = u"ab \t*\u00E9\u4E2D{}";
        std::u16string characters;
        for (auto left = 1 + below(6); left > 0; --left)
            characters += below(8) == 0 ? std::u16string(u"\U0001F600")
                                        : std::u16string(1, kCharacters[below(kCharacters.size())]);
        return characters;
    }

    NSAttributes attributes()
    {
        switch (below(6)) {
        case 0:
            return colored({{u"NSKern", 1.5}, {u"NSUnderline", 1}});
        case 1:
            return colored({{u"NSFont", NSFont::fontWithName(u"Menlo-Regular", 9 + below(9))}});
        case 2:
            return colored({{kForeground, NSColor::redColor()}, {kBackground, NSColor::yellowColor()}});
        case 3:
            return colored({{u"NSLink", u"https://example.com/" + characters()}});
        default:
            return colored();
        }
    }

    NSAttributes highlight()
    {
        const auto type = static_cast<NSInteger>(1 + below(5));
        const auto color = CVLExtensions::colorForHighlightColorType(type);
        return {{kHighlight, type},
                {kBackground, CVLExtensions::highlightBackgroundColor(color)},
                {kForeground, CVLExtensions::highlightForegroundColor(color)}};
    }

    std::shared_ptr<NSTextAttachment> file()
    {
        const auto contents = "contents " + std::to_string(m_random());
        const auto wrapper = makeFile(below(2) == 0 ? u"image.png" : u"data.zip", contents);
        if (below(2) == 0)
            return CVLFileAttachment::initWithFileWrapper(wrapper);
        return NSTextAttachment::initWithFileWrapper(wrapper);
    }

    void addItem(NoteText& text)
    {
        const auto box = makeBox(below(2) == 0, below(6));
        const auto attributes
            = colored({{std::u16string(NSParagraphStyleAttributeName), box->checklistParagraphStyle()}});
        text.add(u"\n", colored()).addAttachment(box, attributes).add(u"item\n", attributes);
    }

    void addPiece(NoteText& text)
    {
        switch (below(6)) {
        case 0:
            text.addAttachment(file(), colored());
            return;
        case 1:
            text.addAttachment(CVLDividerTextAttachment::init());
            return;
        case 2:
            addItem(text);
            return;
        case 3:
            text.add(characters(), highlight());
            return;
        default:
            text.add(characters(), attributes());
        }
    }

    static inline const std::u16string kForeground{NSForegroundColorAttributeName};
    static inline const std::u16string kBackground{NSBackgroundColorAttributeName};
    static inline const std::u16string kHighlight{CVLHighlightTextAttributeName};

    std::mt19937 m_random;
};
