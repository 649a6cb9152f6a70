#include "cli/ErrorMessage.h"

#include "platform/foundation/NSURL.h"
#include "service/CVLIndexingError.h"

#include <memory>
#include <string_view>
#include <variant>

namespace {

constexpr int kMaximumUnderlyingErrors = 8;

// The service's errors carry a code, and a text of their own only when there is more to say.
std::string_view indexingErrorText(const NSError& error)
{
    if (error.domain() != CVLIndexingErrorDomain)
        return {};
    switch (static_cast<CVLIndexingError>(error.code())) {
    case CVLIndexingError::IndexNotOpened:
        return "the index could not be opened for writing";
    case CVLIndexingError::ItemUnreachable:
        return "the file cannot be reached";
    case CVLIndexingError::AddFailed:
        return "it could not be added to the index";
    case CVLIndexingError::MoveFailed:
        return "the index does not hold it, or it cannot be put there";
    }
    return {};
}

std::string ownMessage(const NSError& error)
{
    const auto text = indexingErrorText(error);
    const bool isDescribed = error.userInfo().contains(std::string(NSLocalizedDescriptionKey));
    if (text.empty())
        return error.localizedDescription();
    return isDescribed ? std::string(text) + ": " + error.localizedDescription() : std::string(text);
}

const NSError* underlyingError(const NSError& error)
{
    const auto found = error.userInfo().find(std::string(NSUnderlyingErrorKey));
    if (found == error.userInfo().end())
        return nullptr;
    const auto* underlying = std::get_if<std::shared_ptr<const NSError>>(&found->second);
    return underlying ? underlying->get() : nullptr;
}

} // namespace

NSError commandError(CommandError code, const std::string& description)
{
    return {
        kCommandErrorDomain, static_cast<int>(code), {{std::string(NSLocalizedDescriptionKey), description}}};
}

std::string errorMessage(const NSError& error)
{
    std::string message = ownMessage(error);
    const NSError* underlying = underlyingError(error);
    for (int count = 0; underlying && count < kMaximumUnderlyingErrors; ++count) {
        message += ": " + ownMessage(*underlying);
        underlying = underlyingError(*underlying);
    }
    return message;
}

std::string errorReason(const NSError& error, const std::string& path)
{
    auto message = errorMessage(error);
    const auto url = NSURL::fileURLWithPath(path);
    for (const auto& name : {url.path(), url.absoluteString(), path}) {
        if (message.starts_with(name + ": "))
            return message.substr(name.size() + 2);
    }
    return message;
}
