#include "platform/media/OpenDocumentHandler.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

/// A depth that no element has: the whole part is wanted.
constexpr std::size_t kWholePart = std::numeric_limits<std::size_t>::max();

} // namespace

enum class OpenDocumentHandler::Role {
    None,
    Paragraph,
    Inset,
    Cell,
    Row,
    Space,
    LineBreak,
    Spreadsheet,
    Table,
    HeaderOrFooter,
    Hidden,
};

OpenDocumentHandler::OpenDocumentHandler(Extent extent, ContentSink& sink)
    : m_sink(sink)
    , m_wantedDepth(extent == Extent::Everything ? kWholePart : 0)
{
}

OpenDocumentHandler::Role OpenDocumentHandler::roleOf(std::string_view localName)
{
    struct Row {
        std::string_view name;
        Role role;
    };

    // Sorted, for the binary search.
    static constexpr std::array<Row, 29> kRows{{
        {"annotation", Role::Inset},
        {"covered-table-cell", Role::Cell},
        {"date-time-decl", Role::Paragraph},
        {"footer", Role::HeaderOrFooter},
        {"footer-decl", Role::Paragraph},
        {"footer-first", Role::HeaderOrFooter},
        {"footer-left", Role::HeaderOrFooter},
        {"frame", Role::Inset},
        {"h", Role::Paragraph},
        {"header", Role::HeaderOrFooter},
        {"header-decl", Role::Paragraph},
        {"header-first", Role::HeaderOrFooter},
        {"header-left", Role::HeaderOrFooter},
        {"line-break", Role::LineBreak},
        {"meta", Role::Hidden},
        {"note", Role::Inset},
        {"object", Role::Inset},
        {"object-ole", Role::Inset},
        {"p", Role::Paragraph},
        {"ruby-text", Role::Hidden},
        {"s", Role::Space},
        {"spreadsheet", Role::Spreadsheet},
        {"tab", Role::Space},
        {"tab-stop", Role::Space},
        {"table", Role::Table},
        {"table-cell", Role::Cell},
        {"table-row", Role::Row},
        {"text-box", Role::Inset},
        {"tracked-changes", Role::Hidden},
    }};
    static_assert(std::is_sorted(kRows.begin(), kRows.end(),
                                 [](const Row& left, const Row& right) { return left.name < right.name; }));
    const auto* const row
        = std::lower_bound(kRows.begin(), kRows.end(), localName,
                           [](const Row& left, std::string_view name) { return left.name < name; });
    return row != kRows.end() && row->name == localName ? row->role : Role::None;
}

void OpenDocumentHandler::startElement(std::string_view localName, const XMLAttributes& attributes)
{
    ++m_depth;
    if (m_skippedDepth != 0)
        return;
    const auto role = roleOf(localName);
    if (role == Role::Hidden)
        m_skippedDepth = m_depth;
    else if (role == Role::HeaderOrFooter && m_wantedDepth == 0)
        m_wantedDepth = m_depth;
    else if (m_wantedDepth != 0)
        startRole(role, attributes);
}

void OpenDocumentHandler::startRole(Role role, const XMLAttributes& attributes)
{
    switch (role) {
    case Role::Paragraph:
        m_sink.breakLine();
        push(true);
        break;
    case Role::Inset:
        push(false);
        break;
    case Role::Spreadsheet:
        m_isSpreadsheet = true;
        break;
    case Role::Table:
        m_sink.breakLine();
        if (m_isSpreadsheet)
            (void)m_sink.append(
                attributes.value("name")); // The stream asks the sink itself whether to go on.
        m_sink.breakLine();
        break;
    case Role::LineBreak:
    case Role::Row:
        m_sink.breakLine();
        break;
    case Role::Space:
    case Role::Cell:
        m_sink.breakWord();
        break;
    case Role::None:
    case Role::HeaderOrFooter:
    case Role::Hidden:
        break;
    }
}

void OpenDocumentHandler::push(bool holdsText)
{
    m_frames.push_back({m_depth, holdsText});
}

void OpenDocumentHandler::endElement(std::string_view)
{
    const auto depth = m_depth--;
    if (m_skippedDepth == depth)
        m_skippedDepth = 0;
    if (m_wantedDepth == depth)
        m_wantedDepth = 0;
    if (m_frames.empty() || m_frames.back().depth != depth)
        return;
    const bool endsParagraph = m_frames.back().holdsText;
    m_frames.pop_back();
    if (endsParagraph)
        m_sink.breakLine();
}

void OpenDocumentHandler::text(std::string_view text)
{
    const bool isInParagraph = !m_frames.empty() && m_frames.back().holdsText;
    if (isInParagraph && m_skippedDepth == 0)
        (void)m_sink.append(text); // The stream asks the sink itself whether to go on.
}
