#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

enum class NSFileType { Regular, Directory, SymbolicLink };

/// What a file has beside its name and contents. An absent value is unknown when read, and the usual one when
/// written.
struct NSFileAttributes {
    NSFileType fileType = NSFileType::Regular;
    /// The permission bits, at most 0777. What is written its owner may read, whatever they are.
    std::optional<unsigned> posixPermissions;
    /// Written for files only: a folder that is written is new.
    std::optional<NSDate> modificationDate;
    /// Read where the file system knows it; it cannot be set.
    std::optional<NSDate> creationDate;
    /// Whether the name is to be shown without its extension.
    bool extensionHidden = false;

    friend bool operator==(const NSFileAttributes&, const NSFileAttributes&) = default;
};

enum class NSFileWrapperReadingOptions {
    None = 0,
    /// Everything is read at once, so that the file may go away. Reading always does.
    Immediate = 1
};

/// Bits of how a wrapper is written.
inline constexpr unsigned NSFileWrapperWritingAtomic = 1;
inline constexpr unsigned NSFileWrapperWritingWithNameUpdating = 2;

/// What stands between a number and the name in the key of a member whose name was taken. Reading takes both
/// off again for the preferred name.
inline constexpr std::u16string_view NSFileWrapperUniqueMark = u"__#$!@%!#__";

/// A file, a folder with its members, or a symbolic link, in memory. An identity, shared, that may be
/// changed; a folder must not come to hold itself. One thread at a time.
///
/// Names are texts, while names on disk are any bytes: each byte that is not UTF-8 is the unpaired surrogate
/// U+DC00 plus the byte, and becomes that byte again.
class NSFileWrapper final : public NSCoding {
public:
    using Ref = std::shared_ptr<NSFileWrapper>;
    /// Members by their keys. The order is that of the keys.
    using FileWrappers = std::map<std::u16string, Ref, std::less<>>;

    /// Limits of what is read from disk and, but for the bytes, from serialised form. What passes them is not
    /// written either.
    /// Folders around an entry, up to and with the one that is read.
    static constexpr std::size_t kMostDepth = 32;
    static constexpr std::size_t kMostMembers = 100'000;
    /// Of all files together. A film that is in a note is in its package twice.
    static constexpr std::size_t kMostBytes = std::size_t{4} << 30U;

    /// An empty file, a folder without members, or a link to nowhere.
    explicit NSFileWrapper(NSFileType type);

    [[nodiscard]] static Ref initRegularFileWithContents(NSData contents);
    /// Members without a preferred file name get their keys for one.
    [[nodiscard]] static Ref initDirectoryWithFileWrappers(const FileWrappers& fileWrappers);
    [[nodiscard]] static Ref initSymbolicLinkWithDestinationURL(const NSURL& destination);

    /// Reads a file, or a folder with all it holds. Symbolic links are not followed, at the URL neither: each
    /// is a wrapper of its kind. Null when something cannot be read, with the reason in `error`: of
    /// NSPOSIXErrorDomain, ENOTSUP for what is no file, folder or link; FileReadTooLarge of
    /// NSCocoaErrorDomain beyond a limit.
    [[nodiscard]] static Ref initWithURL(const NSURL& url, NSFileWrapperReadingOptions options,
                                         NSError* error = nullptr);
    /// Null with the reason in `error` (FileReadCorruptFile of NSCocoaErrorDomain) for what is no serialised
    /// wrapper, whatever the bytes.
    [[nodiscard]] static Ref initWithSerializedRepresentation(std::string_view bytes,
                                                              NSError* error = nullptr);

    [[nodiscard]] NSFileType fileType() const { return m_attributes.fileType; }

    [[nodiscard]] bool isRegularFile() const { return fileType() == NSFileType::Regular; }

    [[nodiscard]] bool isDirectory() const { return fileType() == NSFileType::Directory; }

    [[nodiscard]] bool isSymbolicLink() const { return fileType() == NSFileType::SymbolicLink; }

    /// The name that the wrapper has, or should have, on disk where nothing is in its way.
    [[nodiscard]] const std::optional<std::u16string>& preferredFilename() const
    {
        return m_preferredFilename;
    }

    /// Changes no key under which a folder holds the wrapper.
    void setPreferredFilename(std::optional<std::u16string> name) { m_preferredFilename = std::move(name); }

    /// The name on disk that it was read from or written to.
    [[nodiscard]] const std::optional<std::u16string>& filename() const { return m_filename; }

    void setFilename(std::optional<std::u16string> name) { m_filename = std::move(name); }

    [[nodiscard]] const NSFileAttributes& fileAttributes() const { return m_attributes; }

    /// The wrapper's kind stays what it is, whatever the attributes' file type.
    void setFileAttributes(NSFileAttributes attributes);

    /// Null when the wrapper is no regular file. Valid as long as the wrapper lives.
    [[nodiscard]] const NSData* regularFileContents() const;

    /// Empty when the wrapper is no folder.
    [[nodiscard]] const FileWrappers& fileWrappers() const { return m_fileWrappers; }

    /// Null when the folder has no such member.
    [[nodiscard]] Ref fileWrapperForKey(std::u16string_view key) const;

    /// Adds a member under its preferred file name, and gives the key. A key that is taken gets the prefix
    /// "1__#$!@%!#__", or the next number that is free. Empty, with nothing added, when the wrapper is no
    /// folder or the member has no name that a file can have.
    std::u16string addFileWrapper(const Ref& fileWrapper);
    /// The same with a new regular file of that preferred name.
    std::u16string addRegularFileWithContents(NSData contents, std::u16string_view preferredFilename);
    /// Removes the member, under whichever keys.
    void removeFileWrapper(const NSFileWrapper& fileWrapper);
    /// None when the folder does not hold the wrapper.
    [[nodiscard]] std::optional<std::u16string> keyForFileWrapper(const NSFileWrapper& fileWrapper) const;

    /// None when the wrapper is no link. A relative destination is a relative URL.
    [[nodiscard]] std::optional<NSURL> symbolicLinkDestinationURL() const;

    /// The destination as the link has it, byte for byte; empty when the wrapper is no link.
    [[nodiscard]] const std::string& symbolicLinkDestination() const { return m_linkDestination; }

    /// The platform's form of a file, folder or link as bytes; docs/keyed-archives.md has it. None, with the
    /// reason in `error`, when something is larger than the form can hold.
    [[nodiscard]] std::optional<NSData> serializedRepresentation(NSError* error = nullptr) const;

    /// Writes the wrapper, durably. With NSFileWrapperWritingAtomic what stood at `url` is replaced as a
    /// whole: until the new file or folder is complete and on disk the old one is untouched, and after a
    /// failure it is still there (FileWrapperWriter.h has the one exception). Without, nothing may stand
    /// there. With NSFileWrapperWritingWithNameUpdating the wrapper and its members take the names written as
    /// their filenames. `originalContentsURL` would allow sharing unchanged files with an earlier version;
    /// every file is written anew instead, because a shared file that one of two packages changes in place
    /// changes in the other.
    /// @return false with the reason in `error` when the new contents are not at `url`.
    [[nodiscard]] bool writeToURL(const NSURL& url, unsigned options,
                                  const std::optional<NSURL>& originalContentsURL = std::nullopt,
                                  NSError* error = nullptr);

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

private:
    friend class FileWrapperReader;
    friend class FileWrapperSerialization;

    /// The name, or with the first number that is free.
    std::u16string freeKey(const std::u16string& name);

    static NSAny initWithCoder(NSCoder& coder);

    NSFileAttributes m_attributes;
    std::optional<std::u16string> m_preferredFilename;
    std::optional<std::u16string> m_filename;
    NSData m_contents;
    FileWrappers m_fileWrappers;
    /// By names that members wanted and that were taken: all numbers below are taken too.
    std::map<std::u16string, std::size_t> m_nextNumbers;
    std::string m_linkDestination;
};
