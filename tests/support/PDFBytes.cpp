#include "tests/support/PDFBytes.h"

#include <fmt/format.h>

namespace {

constexpr std::size_t kFirstPageObject = 5;

/// Collects objects and writes the table that finds them.
class PDFWriter {
public:
    void addObject(std::string_view body)
    {
        m_offsets.push_back(m_bytes.size());
        m_bytes += fmt::format("{} 0 obj\n{}\nendobj\n", m_offsets.size(), body);
    }

    std::string finish()
    {
        const auto start = m_bytes.size();
        m_bytes += fmt::format("xref\n0 {}\n0000000000 65535 f \n", m_offsets.size() + 1);
        for (const auto offset : m_offsets)
            m_bytes += fmt::format("{:010} 00000 n \n", offset);
        m_bytes += fmt::format("trailer\n<</Size {}/Root 1 0 R/Info 4 0 R>>\nstartxref\n{}\n%%EOF\n",
                               m_offsets.size() + 1, start);
        return m_bytes;
    }

private:
    std::string m_bytes = "%PDF-1.4\n";
    std::vector<std::size_t> m_offsets;
};

std::string streamObject(std::string_view dictionary, std::string_view content)
{
    return fmt::format("<<{}/Length {}>>\nstream\n{}\nendstream", dictionary, content.size(), content);
}

std::string pdf(const std::vector<std::string>& texts, std::string_view title, std::string_view count)
{
    std::string kids;
    for (std::size_t index = 0; index < texts.size(); ++index)
        kids += fmt::format("{} 0 R ", kFirstPageObject + 2 * index);
    PDFWriter writer;
    writer.addObject("<</Type/Catalog/Pages 2 0 R>>");
    writer.addObject(fmt::format("<</Type/Pages/Kids[{}]/Count {}>>", kids, count));
    writer.addObject("<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>");
    writer.addObject(title.empty() ? "<<>>" : fmt::format("<</Title({})/Author(Ann Author)>>", title));
    for (std::size_t index = 0; index < texts.size(); ++index) {
        writer.addObject(fmt::format("<</Type/Page/Parent 2 0 R/MediaBox[0 0 600 800]/Contents {} 0 R"
                                     "/Resources<</Font<</F 3 0 R>>>>>>",
                                     kFirstPageObject + 2 * index + 1));
        const auto content = fmt::format("BT /F 12 Tf 72 720 Td ({}) Tj ET", texts[index]);
        writer.addObject(streamObject("", content));
    }
    return writer.finish();
}

} // namespace

std::string pdfWithPages(const std::vector<std::string>& texts, std::string_view title)
{
    return pdf(texts, title, std::to_string(texts.size()));
}

std::string pdfThatClaimsPages(std::string_view count)
{
    return pdf({"lonely page"}, {}, count);
}

std::string pdfWithNestedForms(unsigned depth)
{
    constexpr std::string_view kDrawTenTimes = "/X Do /X Do /X Do /X Do /X Do /X Do /X Do /X Do /X Do /X Do";
    constexpr unsigned kFirstForm = 6;
    PDFWriter writer;
    writer.addObject("<</Type/Catalog/Pages 2 0 R>>");
    writer.addObject("<</Type/Pages/Kids[3 0 R]/Count 1>>");
    writer.addObject(fmt::format("<</Type/Page/Parent 2 0 R/MediaBox[0 0 600 800]/Contents 5 0 R"
                                 "/Resources<</XObject<</X {} 0 R>>>>>>",
                                 kFirstForm));
    writer.addObject("<<>>");
    writer.addObject(streamObject("", kDrawTenTimes));
    for (unsigned form = 0; form < depth; ++form)
        writer.addObject(streamObject(fmt::format("/Type/XObject/Subtype/Form/BBox[0 0 600 800]"
                                                  "/Resources<</XObject<</X {} 0 R>>>>",
                                                  kFirstForm + form + 1),
                                      kDrawTenTimes));
    writer.addObject(streamObject("/Type/XObject/Subtype/Form/BBox[0 0 600 800]", ""));
    return writer.finish();
}
