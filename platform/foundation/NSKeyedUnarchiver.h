#pragma once

#include "platform/foundation/NSClassTable.h"
#include "platform/foundation/NSCoder.h"

#include <memory>
#include <string_view>

/// Reads archives in the platform's keyed form, binary or XML, whoever wrote them. What is malformed
/// (references in a circle or out of range, wrong kinds, counts and depths beyond the limits) ends in an
/// error of NSCocoaErrorDomain, code 4864 (CoderReadCorrupt), whatever the bytes.
class NSKeyedUnarchiver {
public:
    /// `classes` are those that can be made, and must outlive the unarchiver. None with the reason in `error`
    /// when the data is no keyed archive.
    [[nodiscard]] static std::unique_ptr<NSKeyedUnarchiver>
    initForReadingFromData(std::string_view data, const NSClassTable& classes, NSError* error = nullptr);

private:
    class Archive;

public:
    /// Only this class can make what it takes.
    explicit NSKeyedUnarchiver(std::unique_ptr<Archive> archive);
    NSKeyedUnarchiver(const NSKeyedUnarchiver&) = delete;
    NSKeyedUnarchiver& operator=(const NSKeyedUnarchiver&) = delete;
    ~NSKeyedUnarchiver();

    /// On (the default): only objects of the classes asked for are made, anything else is an error. Off: all
    /// classes of the table; an object of an unknown class is made as its nearest known ancestor, else left
    /// out of what held it.
    void setRequiresSecureCoding(bool requiresSecureCoding);

    /// The object under a key of the archive's top level; nil, without an error, when there is none under it.
    [[nodiscard]] NSAny decodeTopLevelObjectOfClasses(const NSClassList& classes, std::string_view key,
                                                      NSError* error = nullptr);

    /// The top level itself, for classes that look their keys up there.
    [[nodiscard]] NSCoder& topLevel();

    /// The root object, with secure coding.
    [[nodiscard]] static NSAny unarchivedObjectOfClass(const NSClass& accepted, std::string_view data,
                                                       const NSClassTable& classes, NSError* error = nullptr);
    [[nodiscard]] static NSAny unarchivedObjectOfClasses(const NSClassList& accepted, std::string_view data,
                                                         const NSClassTable& classes,
                                                         NSError* error = nullptr);

private:
    std::unique_ptr<Archive> m_archive;
};
