#include "note/NoteApplication.h"

#include "tests/note/NotePackages.h"

#include <gtest/gtest.h>

TEST(NoteApplication, IsWhatTheAttributesSay)
{
    const auto application = NoteApplication::applicationOfPackage(
        NotePackage()
            .addAttributes({{u"appIdentifier", std::u16string(u"com.example.notes")},
                            {u"appVersion", std::u16string(u"4.2")}})
            .wrapper());
    EXPECT_EQ(application.identifier, u"com.example.notes");
    EXPECT_EQ(application.version, u"4.2");
}

TEST(NoteApplication, IsUnknownWithoutTexts)
{
    for (const auto& package : {NotePackage(), NotePackage().add(u"NoteAttributes", "nothing"),
                                NotePackage().addAttributes({{u"appIdentifier", std::int64_t{7}}})}) {
        const auto application = NoteApplication::applicationOfPackage(package.wrapper());
        EXPECT_EQ(application.identifier, std::nullopt);
        EXPECT_EQ(application.version, std::nullopt);
    }
}
