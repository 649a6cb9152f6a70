#include "platform/media/PresentationReader.h"

#include "platform/media/OfficeTextHandler.h"
#include "platform/media/XMLTextStream.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace {

constexpr std::array<std::string_view, 4> kSlideParts{"notesSlide", "comments", "diagramData", "chart"};

class SlideListHandler final : public XMLHandler {
public:
    explicit SlideListHandler(std::size_t limit)
        : m_limit(limit)
    {
    }

    void startElement(std::string_view localName, const XMLAttributes& attributes) override
    {
        if (localName == "sldId" && relationships.size() < m_limit)
            relationships.emplace_back(attributes.prefixedValue("id"));
    }

    std::vector<std::string> relationships;

private:
    std::size_t m_limit;
};

void readText(OfficePackage& package, const std::string& part, ContentSink& sink)
{
    OfficeTextHandler handler(sink);
    sink.breakLine();
    // What could be read of a slide is its text; the other slides do not suffer.
    (void)package.readPart(part, handler);
}

void readSlide(OfficePackage& package, const std::string& slide, ContentSink& sink)
{
    readText(package, slide, sink);
    for (const auto& relationship : package.relationshipsOf(slide)) {
        if (sink.isFull())
            return;
        if (std::find(kSlideParts.begin(), kSlideParts.end(), relationship.kind) != kSlideParts.end())
            readText(package, relationship.target, sink);
    }
}

} // namespace

ReadResult readPresentation(OfficePackage& package, std::string_view mainPart, ContentSink& sink)
{
    SlideListHandler slides(sink.limits().entries);
    const auto status = package.readPart(mainPart, slides);
    const auto relationships = package.relationshipsOf(mainPart);
    for (const auto& identifier : slides.relationships) {
        const auto found
            = std::find_if(relationships.begin(), relationships.end(),
                           [&](const auto& relationship) { return relationship.identifier == identifier; });
        if (sink.isFull())
            break;
        if (found != relationships.end())
            readSlide(package, found->target, sink);
    }
    return resultOfMainPart(status);
}
