#pragma once

#include <string>
#include <string_view>

/// Something that is wrong with a note's package.
struct NoteFinding {
    enum class Kind {
        // Without its text or its attributes a note is less than it was.
        MissingText,
        /// Such a note opens as an empty one.
        EmptyText,
        DamagedText,
        MissingAttributes,
        DamagedAttributes,
        MissingFile,
        /// An attachment without contents whose name is missing, or one that no file can have.
        NamelessFile,
        /// A member that is a link, which is not followed, or a folder, where the note has a file.
        NoFile,
        /// A pipe, a socket or a device, which keeps the whole note from being read.
        SpecialMember,
        /// More than any package may have, which does the same.
        HugeMember,
        /// Why else there is a folder, but no note that can be read.
        UnreadablePackage,
        /// A divider takes the place of text that is no divider's.
        MisplacedDivider,

        // These cost the note nothing, or nothing yet.
        /// A divider that ends the note, which shows as asterisks.
        DividerAtEnd,
        /// A divider where there is no text, which is not shown.
        DividerBehindText,
        UnusedMember,
        LinkedMember,
        /// A member that is not read for the index.
        LargeMember,
        MissingRTF,
        DamagedRTF,
        /// The text for other programs is not the note's.
        DifferentRTF,
    };

    Kind kind = Kind::MissingText;
    /// The member, file or range that it is about, or the reason; empty for the package as a whole. Names
    /// come from the package: they may hold anything.
    std::u16string subject{};

    /// Whether something of the note is gone with it.
    [[nodiscard]] bool isLoss() const { return kind <= Kind::MisplacedDivider; }

    /// One sentence in the user's language.
    [[nodiscard]] std::u16string description() const;

    friend bool operator==(const NoteFinding&, const NoteFinding&) = default;
};

/// "missingText": for programs, the same in every language and version.
[[nodiscard]] std::string_view nameOfNoteFinding(NoteFinding::Kind kind);
