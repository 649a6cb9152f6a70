#include "platform/media/SpreadsheetReader.h"

#include "platform/media/OfficeTextHandler.h"
#include "platform/media/SharedStrings.h"
#include "platform/media/SheetHandler.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

class SheetListHandler final : public XMLHandler {
public:
    struct Sheet {
        std::string name;
        std::string relationship;
    };

    explicit SheetListHandler(std::size_t limit)
        : m_limit(limit)
    {
    }

    void startElement(std::string_view localName, const XMLAttributes& attributes) override
    {
        if (localName == "sheet" && sheets.size() < m_limit)
            sheets.push_back(
                {std::string(attributes.value("name")), std::string(attributes.prefixedValue("id"))});
    }

    std::vector<Sheet> sheets;

private:
    std::size_t m_limit;
};

using Relationships = std::vector<OfficePackage::Relationship>;

/// Parts beside the cells; what could be read of a damaged one is text of the sheet all the same.
void readSheetParts(OfficePackage& package, const std::string& sheet, ContentSink& sink)
{
    for (const auto& relationship : package.relationshipsOf(sheet)) {
        const auto& kind = relationship.kind;
        if (sink.isFull())
            return;
        if (kind != "comments" && kind != "threadedComment" && kind != "drawing")
            continue;
        OfficeTextHandler handler(sink);
        sink.breakLine();
        (void)package.readPart(relationship.target, handler);
    }
}

void readSheet(OfficePackage& package, const std::string& part, const SharedStrings& strings,
               ContentSink& sink)
{
    SheetHandler handler(strings, sink);
    sink.breakLine();
    (void)package.readPart(part,
                           handler); // The rows before the damage are read, the other sheets do not suffer.
    readSheetParts(package, part, sink);
}

SharedStrings readSharedStrings(OfficePackage& package, const Relationships& relationships, ContentSink& sink)
{
    SharedStrings strings;
    for (const auto& relationship : relationships) {
        if (relationship.kind != "sharedStrings")
            continue;
        SharedStringsHandler handler(strings, sink);
        (void)package.readPart(relationship.target, handler); // Cells find what stands before the damage.
        break;
    }
    return strings;
}

} // namespace

ReadResult readWorkbook(OfficePackage& package, std::string_view mainPart, ContentSink& sink)
{
    SheetListHandler list(sink.limits().entries);
    const auto status = package.readPart(mainPart, list);
    const auto relationships = package.relationshipsOf(mainPart);
    const auto strings = readSharedStrings(package, relationships, sink);
    for (const auto& sheet : list.sheets) {
        sink.breakLine();
        if (!sink.append(sheet.name))
            break;
        const auto found
            = std::find_if(relationships.begin(), relationships.end(), [&](const auto& relationship) {
                  return relationship.identifier == sheet.relationship;
              });
        if (found != relationships.end())
            readSheet(package, found->target, strings, sink);
    }
    return resultOfMainPart(status);
}
