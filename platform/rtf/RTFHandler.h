#pragma once

#include "platform/rtf/RTFDestination.h"
#include "platform/rtf/RTFParameter.h"
#include "platform/rtf/RTFWords.h"

#include <cstdint>
#include <string_view>

/// What is done with the content of a document, which an RTFParser finds. A handler chooses which groups it
/// wants; what it does not take is passed over.
class RTFHandler {
public:
    RTFHandler() = default;
    RTFHandler(const RTFHandler&) = delete;
    RTFHandler& operator=(const RTFHandler&) = delete;
    RTFHandler(RTFHandler&&) = delete;
    RTFHandler& operator=(RTFHandler&&) = delete;
    virtual ~RTFHandler() = default;

    /// Whether reading may end here.
    [[nodiscard]] bool hasEnough() const { return m_hasEnough; }

    /// Whether bytes in fonts of symbols are characters of the private area; else they are what the
    /// document's code page makes of them.
    [[nodiscard]] virtual bool keepsSymbols() const { return false; }

    /// Takes characters of the text, UTF-8, that are not hidden. They look as was said before.
    virtual void appendText(std::string_view text) = 0;
    virtual void takeBodyAction(RTFBodyAction action, RTFParameter parameter) = 0;

    /// The look of the text: words about it, the font's number, and all as at the start but for that number.
    virtual void changeFormat(const RTFFormatChange& /*change*/, RTFParameter /*parameter*/) { }

    virtual void setFont(std::int32_t /*number*/) { }

    virtual void resetCharacters(std::int32_t /*font*/) { }

    /// Groups, whose end brings back how the text looked before; only those that have a state of their own.
    virtual void beginGroup() { }

    virtual void endGroup(RTFDestination /*destination*/) { }

    /// A group within the text is to go to `destination`: gives where it goes, `Nothing` to pass it over.
    virtual RTFDestination beginDestination(RTFDestination destination) = 0;

    /// A group within the document's description is about what `name` says; whether it is wanted.
    virtual bool beginInformation(std::string_view /*name*/) { return false; }

    /// Takes a word within a destination that is not the text. Whether it is known: one that is not takes its
    /// group away when it is marked as one to be passed over then.
    virtual bool takeDestinationWord(RTFDestination /*destination*/, std::string_view /*name*/,
                                     RTFParameter /*parameter*/)
    {
        return false;
    }

    /// Takes text within such a destination, UTF-8; of attachments and pictures it is the bytes as they
    /// stand.
    virtual void takeDestinationText(RTFDestination /*destination*/, std::string_view /*text*/) { }

    virtual void takePictureData(std::string_view /*data*/) { }

    /// The group has ended that began the destination, wherever it went. `isShown` tells whether the text
    /// behind it, to which the document returns, is shown.
    virtual void endDestination(RTFDestination /*destination*/, bool /*isShown*/) { }

protected:
    void stop() { m_hasEnough = true; }

private:
    bool m_hasEnough = false;
};
