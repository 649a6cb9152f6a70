#pragma once

#include "platform/foundation/NSUserDefaults.h"
#include "styles/CVLNoteTextStyle.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

/// Tests with user defaults of their own in place of the standard ones.
class StyleTest : public testing::Test {
protected:
    StyleTest()
        : m_defaults(m_folder.file("defaults.plist"))
        , m_replacement(m_defaults)
    {
        CVLNoteTextStyle::reloadStylesFromDefaults();
    }

    [[nodiscard]] NSUserDefaults& defaults() { return m_defaults; }

    [[nodiscard]] static CVLNoteTextStyle::Ref customStyle(std::u16string name)
    {
        auto style = std::make_shared<CVLNoteTextStyle>();
        style->setType(CVLNoteTextStyleType::Custom);
        style->setName(std::move(name));
        return style;
    }

private:
    TemporaryFolder m_folder;
    NSUserDefaults m_defaults;
    NSUserDefaultsReplacement m_replacement;
};

/// An attribute's name as a dictionary's key.
[[nodiscard]] inline std::u16string key(std::u16string_view name)
{
    return std::u16string(name);
}
