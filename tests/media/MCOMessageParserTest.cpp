#include "platform/media/MCOMessageParser.h"

#include "platform/foundation/Unicode.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

std::string bodyOf(std::string_view message)
{
    return MCOMessageParser(message).plainTextBodyRenderingAndStripWhitespace(true);
}

std::string subjectOf(std::string_view value)
{
    const auto message = "Subject: " + std::string(value) + "\n\n";
    return MCOMessageParser(message).header().subject.value_or("none");
}

std::vector<std::string> recipientsOf(std::string_view value)
{
    const auto message = "To: " + std::string(value) + "\n\n";
    std::vector<std::string> recipients;
    const MCOMessageParser parser(message);
    for (const auto& address : parser.header().to)
        recipients.push_back(address.nonEncodedRFC822String());
    return recipients;
}

/// Names, types and sizes, a line each.
std::string attachmentsOf(std::string_view message)
{
    std::string list;
    for (const auto& attachment : MCOMessageParser(message).attachments())
        list += attachment.filename() + " " + attachment.mimeType() + " " + attachment.data() + "\n";
    return list;
}

std::string part(std::string_view fields, std::string_view body)
{
    return std::string("--b\n").append(fields).append("\n\n").append(body).append("\n");
}

std::string multipart(std::string_view subtype, std::initializer_list<std::string> parts)
{
    std::string message = "Content-Type: multipart/" + std::string(subtype) + "; boundary=b\n\nbefore\n";
    for (const auto& each : parts)
        message += each;
    return message + "--b--\nafter\n";
}

std::string repeated(std::string_view piece, std::size_t count)
{
    std::string text;
    for (std::size_t index = 0; index < count; ++index)
        text += piece;
    return text;
}

using Texts = std::vector<std::string>;

} // namespace

TEST(MCOMessageParser, GivesTheFieldsOfTheHeader)
{
    const MCOMessageParser parser(
        "From: Ann <ann@example.org>\r\nTO: bob@example.org\r\nTo: Cy <cy@example.org>\r\n"
        "Cc: D <d@example.org>\r\nBcc: e@example.org\r\nSubject: Two\r\n  lines\r\n\r\nText\r\n");
    const auto& header = parser.header();
    ASSERT_TRUE(header.from);
    EXPECT_EQ(header.from->displayName(), "Ann");
    EXPECT_EQ(header.from->mailbox(), "ann@example.org");
    EXPECT_EQ(header.to.size(), 2U);
    ASSERT_EQ(header.cc.size(), 1U);
    EXPECT_EQ(header.cc.front().nonEncodedRFC822String(), "D <d@example.org>");
    ASSERT_EQ(header.bcc.size(), 1U);
    EXPECT_EQ(header.bcc.front().nonEncodedRFC822String(), "e@example.org");
    EXPECT_EQ(header.subject, "Two  lines");
    EXPECT_EQ(parser.plainTextBodyRenderingAndStripWhitespace(false), "Text\n");
}

TEST(MCOMessageParser, HasNoFieldsWhereTheMessageHasNone)
{
    for (const auto* message : {"", "\n", "X-Other: x\n\nText", "just text"}) {
        const MCOMessageParser parser(message);
        const auto& header = parser.header();
        EXPECT_FALSE(header.from || header.subject) << message;
        EXPECT_EQ(header.to.size() + header.cc.size() + header.bcc.size(), 0U) << message;
        EXPECT_TRUE(parser.attachments().empty()) << message;
    }
    EXPECT_EQ(bodyOf("just text"), "just text");
}

TEST(MCOMessageParser, ReadsHeadersThatBeginOrEndOddly)
{
    for (const auto* message :
         {"Subject: x", "\n\nSubject: x\n\n", "\xEF\xBB\xBFSubject: x\n\n", " stray\nSubject : x\n\n",
          "From a@b Thu Jan  1 00:00:00 1970\nSubject: x\n\n", "Subject: x\nno empty line"})
        EXPECT_EQ(MCOMessageParser(message).header().subject, "x") << message;
    EXPECT_EQ(MCOMessageParser("Subject: x\n \n\ty\n\n").header().subject, "x \ty");
    EXPECT_EQ(bodyOf("Subject: x\nno empty line\nmore"), "no empty line\nmore");
}

TEST(MCOMessageParser, DecodesSubjects)
{
    EXPECT_EQ(subjectOf("=?iso-8859-1?Q?Gr=FC=DFe_an?= alle"), "Grüße an alle");
    EXPECT_EQ(subjectOf("=?UTF-8?B?w6k=?= =?utf-8?b?w6k=?="), "éé");
    EXPECT_EQ(subjectOf("=?utf-8?q?=C3?= =?utf-8?q?=A9?="), "é");
    EXPECT_EQ(subjectOf("=?utf-8*en?Q?a?=\n =?iso-2022-jp?B?GyRCJUYbKEI=?="), "aテ");
    EXPECT_EQ(subjectOf("=?x-unknown?Q?caf=C3=A9?="), "café");
    EXPECT_EQ(subjectOf("na\xC3\xAFve na\xC3\xAFve"), "naïve naïve");
    EXPECT_EQ(subjectOf("=?a?X?y?= =?utf-8?Q?open =?"), "=?a?X?y?= =?utf-8?Q?open =?");
}

TEST(MCOMessageParser, FindsRecipientsInAnyNotation)
{
    EXPECT_EQ(recipientsOf("a@x.org, <b@x.org>, \"C, D\" <c@x.org>, e@x.org (E)"),
              (Texts{"a@x.org", "b@x.org", "\"C, D\" <c@x.org>", "E <e@x.org>"}));
    EXPECT_EQ(recipientsOf("Team: a@x.org, B <b@x.org>;, c@x.org"),
              (Texts{"a@x.org", "B <b@x.org>", "c@x.org"}));
    EXPECT_EQ(recipientsOf(repeated("\"Long, long name\" <a@x.org>,\n ", 1000)),
              Texts(1000, "\"Long, long name\" <a@x.org>"));
    EXPECT_EQ(recipientsOf("undisclosed-recipients:;"), Texts());
    EXPECT_EQ(recipientsOf("=?utf-8?B?w4Us?= =?utf-8?B?IMOW?= <a@x.org>"), (Texts{"\"Å, Ö\" <a@x.org>"}));
    EXPECT_EQ(recipientsOf("J\xC3\xB6 <j@x.org>"), (Texts{"Jö <j@x.org>"}));
}

TEST(MCOAddress, QuotesNamesThatHoldMarks)
{
    EXPECT_EQ(MCOAddress("", "a@x").nonEncodedRFC822String(), "a@x");
    EXPECT_EQ(MCOAddress("Ann B", "a@x").nonEncodedRFC822String(), "Ann B <a@x>");
    EXPECT_EQ(MCOAddress("B, \"Ann\" \\", "a@x").nonEncodedRFC822String(), R"("B, \"Ann\" \\" <a@x>)");
}

TEST(MCOMessageParser, DecodesBodies)
{
    EXPECT_EQ(
        bodyOf("Content-Transfer-Encoding: Quoted-Printable\nContent-Type: text/plain; charset=iso-8859-1\n\n"
               "caf=E9 long=\n line"),
        "café long line");
    EXPECT_EQ(
        bodyOf("Content-Transfer-Encoding: base64\nContent-Type: text/plain; charset=utf-8\n\nY2Fmw6k=\n"),
        "café");
    EXPECT_EQ(bodyOf("Content-Transfer-Encoding: x-odd\n\nas it is"), "as it is");
}

TEST(MCOMessageParser, DistrustsWrongCharsets)
{
    EXPECT_EQ(bodyOf("Content-Type: text/plain; charset=us-ascii\n\ncaf\xC3\xA9"), "café");
    EXPECT_EQ(bodyOf("Content-Type: text/plain; charset=iso-8859-1\n\ncaf\xC3\xA9"), "café");
    EXPECT_EQ(bodyOf("Content-Type: text/plain; charset=unknown-8bit\n\ncaf\xC3\xA9"), "café");
    EXPECT_EQ(bodyOf("Content-Type: text/plain; charset=utf-8\n\nd\xE9j\xE0 vu au caf\xE9 tr\xE8s fran\xE7"
                     "ais"),
              "déjà vu au café très français");
    EXPECT_EQ(bodyOf("Content-Type: text/plain; charset=koi8-r\n\n\xE4\xC1"), "Да");
}

TEST(MCOMessageParser, JoinsFlowedLines)
{
    constexpr std::string_view kFlowed = "Content-Type: text/plain; format=flowed\n\n";
    EXPECT_EQ(bodyOf(std::string(kFlowed) + "one \ntwo\n> three \n> four\n  stuffed\n-- \nme"),
              "one two\n> three four\nstuffed\n--\nme");
    EXPECT_EQ(bodyOf("Content-Type: text/plain; format=flowed; delsp=yes\n\nun \nbroken"), "unbroken");
    EXPECT_EQ(bodyOf("Content-Type: text/plain\n\none \ntwo"), "one\ntwo");
}

TEST(MCOMessageParser, RendersHTML)
{
    EXPECT_EQ(bodyOf("Content-Type: text/html; charset=utf-8\n\n<title>T</title><p>One<p>caf&eacute;"),
              "One\ncafé");
}

TEST(MCOMessageParser, ChoosesThePlainAlternativeUnlessItIsEmpty)
{
    const auto html = part("Content-Type: text/html", "<p>rich</p>");
    EXPECT_EQ(bodyOf(multipart("alternative", {html, part("Content-Type: text/plain", "plain")})), "plain");
    EXPECT_EQ(bodyOf(multipart("alternative", {part("Content-Type: text/plain", " \n"), html})), "rich");
    EXPECT_EQ(
        bodyOf(multipart("alternative", {html, part("Content-Type: text/calendar", "BEGIN:VCALENDAR")})),
        "rich");
}

TEST(MCOMessageParser, ShowsInlineTextsInOrder)
{
    EXPECT_EQ(bodyOf(multipart("mixed",
                               {part("Content-Type: text/plain", "one"), part("", "two"),
                                part("Content-Type: image/png", "xx"),
                                part("Content-Type: text/html", "<b>three</b>")})),
              "one\ntwo\nthree");
}

TEST(MCOMessageParser, KeepsAttachedFilesOutOfTheBody)
{
    const auto message = multipart(
        "mixed",
        {part("Content-Type: text/plain", "body"),
         part("Content-Type: text/plain\nContent-Disposition: attachment; filename=a.txt", "attached"),
         part("Content-Type: text/x-diff\nContent-Disposition: inline; filename=b.diff", "shown"),
         part("Content-Type: image/png; name=c.png\nContent-Transfer-Encoding: base64", "Yw=="),
         part("Content-Type: application/pgp-signature", "signature")});
    EXPECT_EQ(bodyOf(message), "body\nshown");
    EXPECT_EQ(attachmentsOf(message),
              "a.txt text/plain attached\nb.diff text/x-diff shown\nc.png image/png c\n"
              " application/pgp-signature signature\n");
}

TEST(MCOMessageParser, DecodesFileNames)
{
    struct Case {
        std::string_view parameters;
        std::string_view filename;
    };

    for (const auto& [parameters, filename] : std::initializer_list<Case>{
             {"filename=plain.png", "plain.png"},
             {"filename=\"a b;c.png\"", "a b;c.png"},
             {"filename*=utf-8'en'%C3%A9.png", "é.png"},
             {"filename*0*=iso-8859-1''%E9t; filename*1*=%E9; filename*2=.png", "été.png"},
             {"filename=\"=?utf-8?B?w6k=?= =?utf-8?B?w6kucG5n?=\"", "éé.png"},
             {"filename=\"\xC3\xA9.png\"", "é.png"},
             {"filename=\"\xE4hm \xFC"
              "ber gr\xFC\xDF"
              "e.png\"",
              "ähm über grüße.png"},
             {R"(filename="C:\temp\"new\".png")", R"(C:\temp"new".png)"},
             {"filename=\"../../etc/passwd\"", "../../etc/passwd"},
             {"size=3", ""},
         }) {
        const auto message = "Content-Disposition: attachment; " + std::string(parameters)
            + "\nContent-Type: image/png\n\nx";
        EXPECT_EQ(MCOMessageParser(message).attachments().at(0).filename(), filename) << parameters;
    }
}

TEST(MCOMessageParser, RendersAttachedMessages)
{
    const auto message
        = multipart("mixed",
                    {part("Content-Type: text/plain", "see below"),
                     part("Content-Type: message/rfc822",
                          "From: Ann <a@x.org>\nTo: b@x.org\nSubject: Inner\n"
                          "Content-Type: multipart/mixed; boundary=c\n\n--c\n\ninner body\n--c\n"
                          "Content-Type: image/png; name=i.png\n\nx\n--c--\n")});
    EXPECT_EQ(bodyOf(message), "see below\nFrom: Ann <a@x.org>\nTo: b@x.org\nSubject: Inner\ninner body");
    const auto attachments = MCOMessageParser(message).attachments();
    ASSERT_EQ(attachments.size(), 2U);
    EXPECT_EQ(attachments[0].mimeType(), "message/rfc822");
    EXPECT_TRUE(attachments[0].data().starts_with("From: Ann"));
    EXPECT_TRUE(attachments[0].data().ends_with("--c--\n")) << attachments[0].data();
    EXPECT_EQ(attachments[1].filename(), "i.png");
}

TEST(MCOMessageParser, ReadsAttachedMessagesThatAreEncoded)
{
    // "Subject: Inner\n\nbody"
    const auto message = multipart("mixed",
                                   {part("Content-Type: message/rfc822\nContent-Transfer-Encoding: base64",
                                         "U3ViamVjdDogSW5uZXIKCmJvZHk=")});
    EXPECT_EQ(bodyOf(message), "Subject: Inner\nbody");
}

TEST(MCOMessageParser, TakesMessagesForPartsOfADigest)
{
    EXPECT_EQ(
        bodyOf(multipart("digest", {"--b\n\nSubject: One\n\nfirst\n", "--b\n\nSubject: Two\n\nsecond\n"})),
        "Subject: One\nfirst\nSubject: Two\nsecond");
}

TEST(MCOMessageParser, EndsUnclosedPartsWhereTheirMultipartEnds)
{
    constexpr std::string_view kMessage
        = "Content-Type: multipart/mixed; boundary=outer\n\n--outer\n"
          "Content-Type: multipart/mixed; boundary=\"inner \"\n\n--inner\n\none\n"
          "--outer \t\n\ntwo\n";
    EXPECT_EQ(bodyOf(kMessage), "one\ntwo");
}

TEST(MCOMessageParser, ShowsMultipartsWithoutPartsAsTheyAre)
{
    EXPECT_EQ(bodyOf("Content-Type: multipart/mixed; boundary=b\n\nno such line"), "no such line");
    EXPECT_EQ(bodyOf("Content-Type: multipart/mixed\n\nno boundary"), "no boundary");
    EXPECT_EQ(bodyOf("Content-Type: odd\n\ntext"), "text");
}

TEST(MCOMessageParser, ReadsMessagesInUTF16)
{
    const std::u16string_view message = u"\uFEFFSubject: Zwölf\n\nText\n";
    const std::string bytes(reinterpret_cast<const char*>(message.data()), message.size() * sizeof(char16_t));
    const MCOMessageParser parser(bytes);
    EXPECT_EQ(parser.header().subject, "Zwölf");
    EXPECT_EQ(parser.plainTextBodyRenderingAndStripWhitespace(true), "Text");
}

TEST(MCOMessageParser, StripsWhiteSpace)
{
    constexpr std::string_view kMessage = "\n\n  one \t two\r\n \r\n\r\nthree \n\n";
    EXPECT_EQ(bodyOf(kMessage), "one two\nthree");
    EXPECT_EQ(MCOMessageParser("X: y\n\n a\r\n\r\n b").plainTextBodyRenderingAndStripWhitespace(false),
              " a\n\n b");
}

TEST(MCOMessageParser, BoundsTheNumberOfParts)
{
    const auto message = "Content-Type: multipart/mixed; boundary=b\n\n" + repeated("--b\n\nx\n", 200'000);
    EXPECT_EQ(bodyOf(message).size(), 9'999U * 2 - 1);
}

TEST(MCOMessageParser, BoundsTheDepthOfParts)
{
    std::string multiparts;
    for (int level = 0; level < 20'000; ++level) {
        const auto boundary = "b" + std::to_string(level);
        multiparts.append("Content-Type: multipart/mixed; boundary=").append(boundary);
        multiparts.append("\n\n--").append(boundary).append("\n");
    }
    EXPECT_TRUE(bodyOf(multiparts + "\ndeep").ends_with("deep"));
    EXPECT_TRUE(bodyOf(repeated("Content-Type: message/rfc822\n\n", 20'000) + "\ndeep").ends_with("deep"));
}

TEST(MCOMessageParser, BoundsTheHeader)
{
    EXPECT_EQ(bodyOf(repeated("Cc: a@x.org\n", 200'000) + "\nbody"), "body");
    EXPECT_LE(recipientsOf(repeated("a,", 2'000'000)).size(), 32'768U);
}

TEST(MCOMessageParser, SurvivesHostileFields)
{
    for (const auto* unit : {"(", "\"", "<", "a:", "=?a?q?", "\\", "[", "@", "a@b,:;"})
        EXPECT_EQ(bodyOf("To: " + repeated(unit, 100'000) + "\n\nbody"), "body") << unit;
    for (const auto* unit : {"; a=b", ";", "; filename*0=a", "; filename*=a'b'%41", "\"", "(", "=?a?q?x?= "})
        EXPECT_NE(bodyOf("Content-Disposition: inline" + repeated(unit, 100'000) + "\n\nbody"), "") << unit;
}

TEST(MCOMessageParser, ReadsEveryCutOfAMessage)
{
    const auto message = "From: =?utf-8?B?w4Us?= <a@x.org>\r\nSubject: =?utf-8?Q?=C3=A9?=\r\n"
        + multipart("mixed",
                    {part("Content-Type: text/plain; charset=utf-8", "caf\xC3\xA9"),
                     part("Content-Type: image/png; name*=utf-8''%C3%A9\nContent-Transfer-Encoding: base64",
                          "eHg=")});
    for (std::size_t length = 0; length <= message.size(); ++length) {
        const auto cut = message.substr(0, length);
        const MCOMessageParser parser(cut);
        EXPECT_TRUE(isValidUTF8(parser.plainTextBodyRenderingAndStripWhitespace(false))) << length;
        for (const auto& attachment : parser.attachments())
            EXPECT_TRUE(isValidUTF8(attachment.filename())) << length;
    }
}

TEST(MCOMessageParser, MayBeUsedOnSeveralThreads)
{
    constexpr std::size_t kThreadCount = 4;
    std::vector<std::thread> threads;
    threads.reserve(kThreadCount);
    for (std::size_t index = 0; index < kThreadCount; ++index) {
        threads.emplace_back([] {
            for (int round = 0; round < 100; ++round)
                EXPECT_EQ(subjectOf("=?utf-8?B?w6k=?="), "é");
        });
    }
    for (auto& thread : threads)
        thread.join();
}
