#include "platform/types/UTType.h"

#include "platform/foundation/Unicode.h"
#include "platform/types/DynamicType.h"
#include "platform/types/TypeDeclarations.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

struct UTType::Declaration {
    std::string identifier;
    /// Every type that this one conforms to, itself left out. The texts are the table's own.
    std::vector<std::string_view> ancestors;
    std::string preferredMIMEType;
    std::string preferredFilenameExtension;
};

namespace {

std::vector<std::string_view> words(std::string_view list)
{
    std::vector<std::string_view> found;
    while (!list.empty()) {
        const auto end = std::min(list.find(' '), list.size());
        found.push_back(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return found;
}

std::string firstWord(std::string_view list)
{
    return std::string(list.substr(0, list.find(' ')));
}

std::string inLowerCase(std::string_view text)
{
    std::string lower(text);
    for (char& character : lower) {
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    }
    return lower;
}

void addOnce(std::vector<std::string_view>& list, std::string_view word)
{
    if (std::find(list.begin(), list.end(), word) == list.end())
        list.push_back(word);
}

std::optional<std::string> unlessEmpty(const std::string& text)
{
    return text.empty() ? std::nullopt : std::optional(text);
}

} // namespace

/// The declared types by all that they are looked up by. Made once, on first use, and never changed.
class UTType::Registry {
public:
    using DeclarationReference = std::shared_ptr<const Declaration>;
    using Table = std::unordered_map<std::string_view, DeclarationReference>;

    static const Registry& shared()
    {
        static const Registry registry;
        return registry;
    }

    static std::optional<UTType> find(const Table& table, std::string_view key)
    {
        const auto found = table.find(key);
        return found == table.end() ? std::nullopt : std::optional(UTType(found->second));
    }

    [[nodiscard]] const Table& byIdentifier() const { return m_byIdentifier; }

    [[nodiscard]] const Table& byMIMEType() const { return m_byMIMEType; }

    [[nodiscard]] const Table& byFilenameExtension() const { return m_byFilenameExtension; }

    [[nodiscard]] UTType dynamicType(std::string mimeType) const
    {
        Declaration declaration;
        declaration.identifier = dynamicIdentifierForMIMEType(mimeType);
        declaration.ancestors = lineage(parentForMIMEType(mimeType));
        declaration.preferredMIMEType = std::move(mimeType);
        return UTType(std::make_shared<const Declaration>(std::move(declaration)));
    }

private:
    Registry()
    {
        for (const auto& row : typeDeclarations())
            declare(row);
    }

    void declare(const TypeDeclaration& row)
    {
        Declaration declaration;
        declaration.identifier = row.identifier;
        for (const auto parent : words(row.parents)) {
            for (const auto ancestor : lineage(parent))
                addOnce(declaration.ancestors, ancestor);
        }
        declaration.preferredMIMEType = firstWord(row.mimeTypes);
        declaration.preferredFilenameExtension = firstWord(row.filenameExtensions);
        const auto shared = std::make_shared<const Declaration>(std::move(declaration));
        m_byIdentifier.emplace(row.identifier, shared);
        for (const auto mimeType : words(row.mimeTypes))
            m_byMIMEType.emplace(mimeType, shared);
        for (const auto extension : words(row.filenameExtensions))
            m_byFilenameExtension.emplace(extension, shared);
    }

    /// A declared type and its ancestors.
    [[nodiscard]] std::vector<std::string_view> lineage(std::string_view identifier) const
    {
        const auto found = m_byIdentifier.find(identifier);
        if (found == m_byIdentifier.end())
            return {};
        std::vector<std::string_view> line{found->first};
        line.insert(line.end(), found->second->ancestors.begin(), found->second->ancestors.end());
        return line;
    }

    Table m_byIdentifier;
    Table m_byMIMEType;
    Table m_byFilenameExtension;
};

UTType::UTType(std::shared_ptr<const Declaration> declaration)
    : m_declaration(std::move(declaration))
{
}

std::optional<UTType> UTType::typeWithIdentifier(std::string_view identifier)
{
    const auto& registry = Registry::shared();
    if (auto declared = Registry::find(registry.byIdentifier(), identifier))
        return declared;
    auto mimeType = mimeTypeForDynamicIdentifier(identifier);
    return mimeType ? std::optional(registry.dynamicType(std::move(*mimeType))) : std::nullopt;
}

std::optional<UTType> UTType::typeWithMIMEType(std::string_view mimeType)
{
    auto normalised = normalisedMIMEType(mimeType);
    if (!normalised)
        return std::nullopt;
    const auto& registry = Registry::shared();
    if (auto declared = Registry::find(registry.byMIMEType(), *normalised))
        return declared;
    return registry.dynamicType(std::move(*normalised));
}

std::optional<UTType> UTType::typeWithFilenameExtension(std::string_view extension)
{
    return Registry::find(Registry::shared().byFilenameExtension(), inLowerCase(extension));
}

const std::string& UTType::identifier() const
{
    return m_declaration->identifier;
}

bool UTType::conformsToType(const UTType& other) const
{
    return conformsToType(other.identifier());
}

bool UTType::conformsToType(std::string_view identifier) const
{
    const auto& ancestors = m_declaration->ancestors;
    return m_declaration->identifier == identifier
        || std::find(ancestors.begin(), ancestors.end(), identifier) != ancestors.end();
}

bool UTType::identifierConformsToType(std::u16string_view identifier, std::string_view type)
{
    const auto known = typeWithIdentifier(UTF8FromUTF16(identifier));
    return known && known->conformsToType(type);
}

std::optional<std::string> UTType::preferredMIMEType() const
{
    return unlessEmpty(m_declaration->preferredMIMEType);
}

std::optional<std::string> UTType::preferredFilenameExtension() const
{
    return unlessEmpty(m_declaration->preferredFilenameExtension);
}
