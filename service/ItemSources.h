#pragma once

#include "platform/foundation/NSURL.h"
#include "platform/types/UTType.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Gives the text of the application's own note packages. Used by any thread. The default gives none.
class NoteText {
public:
    virtual ~NoteText() = default;

    /// The plain text of the note, UTF-8; none when the package cannot be read.
    [[nodiscard]] virtual std::optional<std::string> noteTextOfPackage(const NSURL& /*url*/) const
    {
        return std::nullopt;
    }
};

/// Gives the search terms that a classifier finds for an image. Used by any thread. The default supports no
/// image.
class ImageTerms {
public:
    virtual ~ImageTerms() = default;

    [[nodiscard]] virtual bool isFileTypeSupported(const UTType& /*type*/) const { return false; }

    /// UTF-8, best first; empty when there are none or the image cannot be read.
    [[nodiscard]] virtual std::vector<std::string> searchTermsForFile(const NSURL& /*url*/) const
    {
        return {};
    }

    [[nodiscard]] virtual std::vector<std::string> searchTermsForData(std::string_view /*data*/) const
    {
        return {};
    }
};

/// What the text of items and attachments comes from, besides the readers of file formats. Never null.
struct ItemSources {
    std::shared_ptr<const NoteText> noteText = std::make_shared<const NoteText>();
    std::shared_ptr<const ImageTerms> imageTerms = std::make_shared<const ImageTerms>();
};
