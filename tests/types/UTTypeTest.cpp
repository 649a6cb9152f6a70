#include "platform/types/UTType.h"

#include "platform/types/DynamicType.h"
#include "platform/types/TypeDeclarations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

std::string identifierForExtension(std::string_view extension)
{
    const auto type = UTType::typeWithFilenameExtension(extension);
    return type ? type->identifier() : "none";
}

std::string identifierForMIMEType(std::string_view mimeType)
{
    const auto type = UTType::typeWithMIMEType(mimeType);
    return type ? type->identifier() : "none";
}

bool conforms(std::string_view extension, std::string_view identifier)
{
    return UTType::typeWithFilenameExtension(extension).value().conformsToType(identifier);
}

} // namespace

TEST(TypeDeclarations, NameOnlyParentsThatStandAboveThem)
{
    std::set<std::string_view> above;
    for (const auto& row : typeDeclarations()) {
        for (auto rest = row.parents; !rest.empty();) {
            const auto parent = rest.substr(0, rest.find(' '));
            EXPECT_TRUE(above.contains(parent)) << row.identifier << " conforms to " << parent;
            rest.remove_prefix(std::min(parent.size() + 1, rest.size()));
        }
        EXPECT_TRUE(above.insert(row.identifier).second) << row.identifier << " stands there twice";
    }
}

TEST(TypeDeclarations, HoldWellFormedMIMETypesInLowerCase)
{
    for (const auto& row : typeDeclarations()) {
        for (auto rest = row.mimeTypes; !rest.empty();) {
            const auto mimeType = rest.substr(0, rest.find(' '));
            EXPECT_EQ(normalisedMIMEType(mimeType), mimeType) << row.identifier;
            rest.remove_prefix(std::min(mimeType.size() + 1, rest.size()));
        }
    }
}

TEST(TypeDeclarations, GiveEveryMIMETypeAndExtensionToOneRow)
{
    std::set<std::string_view> seen;
    for (const auto& row : typeDeclarations()) {
        for (auto rest : {row.mimeTypes, row.filenameExtensions}) {
            while (!rest.empty()) {
                const auto word = rest.substr(0, rest.find(' '));
                EXPECT_TRUE(seen.insert(word).second) << word << " stands there twice";
                rest.remove_prefix(std::min(word.size() + 1, rest.size()));
            }
        }
    }
}

TEST(UTType, KnowsTypesByExtensionWhateverItsCase)
{
    EXPECT_EQ(identifierForExtension("txt"), "public.plain-text");
    EXPECT_EQ(identifierForExtension("md"), "net.daringfireball.markdown");
    EXPECT_EQ(identifierForExtension("PDF"), "com.adobe.pdf");
    EXPECT_EQ(identifierForExtension("Docx"), "org.openxmlformats.wordprocessingml.document");
    EXPECT_EQ(identifierForExtension("eml"), "public.email-message");
    EXPECT_EQ(identifierForExtension("rtfd"), "com.apple.rtfd");
    EXPECT_EQ(identifierForExtension("cvlnote"), "com.tessel.corvel.note");
    EXPECT_EQ(identifierForExtension("heic"), "public.heic");
}

TEST(UTType, HasNoTypeForUnknownExtensions)
{
    EXPECT_EQ(identifierForExtension("quux"), "none");
    EXPECT_EQ(identifierForExtension(""), "none");
    EXPECT_EQ(identifierForExtension(".txt"), "none");
    EXPECT_EQ(identifierForExtension(std::string_view("txt\0", 4)), "none");
}

TEST(UTType, CountsTextThatIsReadAsItStandsAsPlainText)
{
    for (const auto* extension :
         {"txt", "md",  "csv", "tsv", "json", "yaml", "toml", "log",   "ini",  "conf", "diff", "tex",
          "rst", "org", "srt", "c",   "h",    "cpp",  "mm",   "swift", "java", "js",   "ts",   "py",
          "rb",  "pl",  "php", "sh",  "go",   "rs",   "hs",   "lua",   "sql",  "css",  "vcf",  "ics"})
        EXPECT_TRUE(conforms(extension, "public.plain-text")) << extension;
    EXPECT_TRUE(conforms("py", "public.source-code"));
    EXPECT_TRUE(conforms("md", "public.markdown"));
}

TEST(UTType, CountsMarkedUpTextAsTextButNotAsPlainText)
{
    for (const auto* extension : {"html", "xhtml", "xml", "xsl", "atom", "rss", "opml", "plist", "svg"}) {
        EXPECT_TRUE(conforms(extension, "public.text")) << extension;
        EXPECT_FALSE(conforms(extension, "public.plain-text")) << extension;
    }
    EXPECT_TRUE(conforms("svg", "public.image"));
    EXPECT_TRUE(conforms("xhtml", "public.html"));
}

TEST(UTType, KeepsRichTextAndMailApartFromText)
{
    EXPECT_FALSE(conforms("rtf", "public.text"));
    EXPECT_FALSE(conforms("eml", "public.text"));
    EXPECT_TRUE(conforms("rtfd", "com.apple.package"));
    EXPECT_TRUE(conforms("cvlnote", "com.apple.package"));
    EXPECT_FALSE(conforms("mbox", "public.email-message"));
}

TEST(UTType, PutsVariantsOfADocumentUnderItsMainType)
{
    for (const auto* extension : {"docx", "docm", "dotx", "dotm"})
        EXPECT_TRUE(conforms(extension, "org.openxmlformats.wordprocessingml.document")) << extension;
    EXPECT_NE(identifierForExtension("docm"), identifierForExtension("docx"));
    EXPECT_FALSE(conforms("doc", "org.openxmlformats.wordprocessingml.document"));
    EXPECT_TRUE(conforms("xlsm", "org.openxmlformats.spreadsheetml.sheet"));
    EXPECT_TRUE(conforms("ott", "org.oasis-open.opendocument.text"));
}

TEST(UTType, ConformsToItselfAndToAllAncestorsOnly)
{
    const auto type = UTType::typeWithIdentifier("public.python-script").value();
    for (const auto* ancestor :
         {"public.python-script", "public.script", "public.source-code", "public.plain-text", "public.text",
          "public.data", "public.content", "public.item"})
        EXPECT_TRUE(type.conformsToType(ancestor)) << ancestor;
    EXPECT_FALSE(type.conformsToType("public.ruby-script"));
    EXPECT_FALSE(type.conformsToType("public.image"));
    EXPECT_FALSE(UTType::typeWithIdentifier("public.data")->conformsToType(type));
}

TEST(UTType, KnowsTypesByMIMETypeWithoutItsParameters)
{
    EXPECT_EQ(identifierForMIMEType("text/plain"), "public.plain-text");
    EXPECT_EQ(identifierForMIMEType(" Text/HTML; charset=utf-8"), "public.html");
    EXPECT_EQ(identifierForMIMEType("message/rfc822"), "public.email-message");
    EXPECT_EQ(identifierForMIMEType("application/octet-stream"), "public.data");
}

TEST(UTType, HasNoTypeForWhatIsNoMIMEType)
{
    for (const auto* malformed :
         {"", "text", "text/", "/plain", "text/pl ain", "a/b/c", "text/plain\n/x", "tëxt/plain"})
        EXPECT_EQ(identifierForMIMEType(malformed), "none") << malformed;
    EXPECT_EQ(identifierForMIMEType("text/" + std::string(128, 'a')), "none");
}

TEST(UTType, MakesDynamicTypesForUndeclaredMIMETypes)
{
    const auto type = UTType::typeWithMIMEType("Application/X-Unheard-Of").value();
    EXPECT_TRUE(type.identifier().starts_with("dyn."));
    EXPECT_TRUE(type.conformsToType("public.data"));
    EXPECT_EQ(type.preferredMIMEType(), "application/x-unheard-of");
    EXPECT_EQ(type.preferredFilenameExtension(), std::nullopt);

    const auto again = UTType::typeWithIdentifier(type.identifier());
    ASSERT_TRUE(again);
    EXPECT_EQ(*again, type);
    EXPECT_EQ(again->preferredMIMEType(), "application/x-unheard-of");
}

TEST(UTType, PlacesDynamicTypesByTheirMIMEType)
{
    EXPECT_TRUE(UTType::typeWithMIMEType("text/x-unheard-of")->conformsToType("public.text"));
    EXPECT_TRUE(UTType::typeWithMIMEType("image/x-unheard-of")->conformsToType("public.image"));
    EXPECT_TRUE(UTType::typeWithMIMEType("application/x-unheard-of+xml")->conformsToType("public.xml"));
    EXPECT_FALSE(UTType::typeWithMIMEType("application/x-unheard-of")->conformsToType("public.text"));
}

TEST(UTType, RefusesIdentifiersThatNothingDeclares)
{
    for (const auto* identifier :
         {"", "public.nothing", "dyn.", "dyn.7", "dyn.zz", "dyn.74", "dyn.2f2f", "PUBLIC.DATA"})
        EXPECT_FALSE(UTType::typeWithIdentifier(identifier)) << identifier;
}

TEST(UTType, PrefersTheFirstMIMETypeAndExtension)
{
    const auto text = UTType::typeWithIdentifier("public.plain-text").value();
    EXPECT_EQ(text.preferredMIMEType(), "text/plain");
    EXPECT_EQ(text.preferredFilenameExtension(), "txt");
    EXPECT_EQ(UTType::typeWithIdentifier("public.text")->preferredMIMEType(), std::nullopt);
    EXPECT_EQ(UTType::typeWithIdentifier("public.folder")->preferredFilenameExtension(), std::nullopt);
}

TEST(UTType, TellsOfAnIdentifierWhatItConformsTo)
{
    EXPECT_TRUE(UTType::identifierConformsToType(u"public.png", kUTTypeImage));
    EXPECT_TRUE(UTType::identifierConformsToType(u"public.image", kUTTypeImage));
    EXPECT_FALSE(UTType::identifierConformsToType(u"com.adobe.pdf", kUTTypeImage));
    const auto dynamic = UTType::typeWithMIMEType("image/x-unheard-of").value().identifier();
    EXPECT_TRUE(
        UTType::identifierConformsToType(std::u16string(dynamic.begin(), dynamic.end()), kUTTypeImage));
}

TEST(UTType, TellsNothingOfIdentifiersItDoesNotKnow)
{
    for (const auto* identifier : {u"", u"unheard.of", u"public.p\u00F1g", u"Public.png"})
        EXPECT_FALSE(UTType::identifierConformsToType(identifier, kUTTypeData));
    EXPECT_FALSE(UTType::identifierConformsToType(u"unheard.of", "unheard.of"));
}
