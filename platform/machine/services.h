#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

/// Monotonic time; setting the machine's clock or midnight do not show.
class Clock {
public:
    virtual ~Clock() = default;
    /// Seconds since the program started, with fractions.
    virtual double seconds() const = 0;
};

class Random {
public:
    virtual ~Random() = default;
    /// Seeds the generator from the clock.
    virtual void randomize() = 0;
    /// A number from 0 up to but not including 1.
    virtual double next() = 0;
};

/// Plays wave files. A new sound cuts the one that plays; a missing file or device is silence.
class Sound {
public:
    virtual ~Sound() = default;
    /// `path` as the logic writes paths (with backslashes). Returns at once, and says how long the sound
    /// lasts until its end is heard, in milliseconds; 0 if it cannot be heard. Whoever has to wait for the
    /// end waits that long.
    virtual int play(const std::wstring& path) = 0;
};

/// A file open for random access in records, closed by its destructor at the latest. Nothing is buffered in
/// the program.
class RecordFile {
public:
    virtual ~RecordFile() = default;
    /// Reads up to `size` bytes at `offset`. Fewer at the end of the file, none beyond it; no value if
    /// reading failed.
    virtual std::optional<std::string> read(std::int64_t offset, std::size_t size) = 0;
    /// Writes all bytes at `offset` in one go, extending the file if need be. False if they did not all
    /// arrive; then what stood there is put back.
    virtual bool write(std::int64_t offset, std::string_view bytes) = 0;
    /// Closes the file, and tells what a share may say only now: false if something written did not arrive.
    /// Not a flush, which would be too dear for the record that is rewritten at every key.
    virtual bool close() = 0;
};

/// Files and folders. Paths carry backslashes; names are found without regard to case (the exact name first).
/// No operation throws: what fails says so by its result.
class Files {
public:
    virtual ~Files() = default;
    /// Opens for reading and writing and creates a missing file; a file that can only be read is opened for
    /// reading. Null if there is no such folder or the name is no file or a link.
    virtual std::unique_ptr<RecordFile> openRecords(const std::wstring& path) = 0;
    /// The whole file, at most `limit` bytes of it; no value if it cannot be read.
    virtual std::optional<std::string> readAll(const std::wstring& path, std::size_t limit) = 0;
    /// Replaces the content of a file, or creates it. The new content has arrived whole, on the disk or the
    /// server, or the old one is there as before.
    virtual bool writeAll(const std::wstring& path, std::string_view bytes) = 0;
    /// The name of the file at exactly this path, as it is written on disk; empty if there is none.
    virtual std::wstring search(const std::wstring& path) = 0;
    virtual bool folderExists(const std::wstring& path) = 0;
    /// True if the path is a link to somewhere else, whether to a file, a folder or nothing, and also where
    /// that cannot be told. `removeFile` takes the link away and leaves what it points at.
    virtual bool isLink(const std::wstring& path) = 0;
    /// Names of the files in `folder` that match `pattern` (`*` and `?`), sorted as a reader sorts; no value
    /// if it could not be listed, which is not the same as having no file in it.
    virtual std::optional<std::vector<std::wstring>> listFiles(const std::wstring& folder,
                                                               std::wstring_view pattern) = 0;
    /// Names of the folders in `folder`, as above.
    virtual std::optional<std::vector<std::wstring>> listFolders(const std::wstring& folder) = 0;
    virtual bool makeFolder(const std::wstring& path) = 0;
    virtual bool removeFolder(const std::wstring& path) = 0;
    virtual bool copyFile(const std::wstring& from, const std::wstring& to) = 0;
    /// Renames a file or a folder; nothing that bears the new name is replaced.
    virtual bool rename(const std::wstring& from, const std::wstring& to) = 0;
    virtual bool removeFile(const std::wstring& path) = 0;
    /// The path as a person on this machine writes it, and back from what such a person types.
    virtual std::wstring shown(const std::wstring& path) const = 0;
    virtual std::wstring entered(const std::wstring& text) const = 0;
    /// The path as it holds wherever the program is started from.
    virtual std::wstring absolute(const std::wstring& path) const = 0;
};

/// What the desktop does for the program. Results are not inspected.
class Shell {
public:
    virtual ~Shell() = default;
    virtual void openDocument(const std::wstring& target) = 0;
    virtual void showFolder(const std::wstring& path) = 0;
    /// A folder picked in a dialog, with backslashes; empty if the user cancelled.
    virtual std::wstring chooseFolder(const std::wstring& title) = 0;
    /// The folder of application data common to all users, without a closing backslash.
    virtual std::wstring commonDataFolder() = 0;
    /// The folder of the executable, without a closing backslash.
    virtual std::wstring programFolder() = 0;
    /// True if another instance of the program runs on this machine; released even by a crash of that
    /// instance.
    virtual bool secondInstance() = 0;
    virtual wchar_t decimalSign() = 0;
};

/// The status codes of the machine-wide values, as the registry of record numbers them.
enum class RegistryStatus : int { success = 0, fileNotFound = 2, accessDenied = 5, invalidHandle = 6 };

/// Machine-wide values in keys, each a type and bytes. Handles are small numbers; 0 is none.
class Registry {
public:
    using Handle = int;
    enum class Type : std::uint32_t { none = 0, string = 1, binary = 3, dword = 4, multiString = 7 };
    struct Value {
        Type type = Type::none;
        std::string bytes;
    };
    struct Opened {
        RegistryStatus status = RegistryStatus::fileNotFound;
        Handle handle = 0;
    };
    struct Created {
        RegistryStatus status = RegistryStatus::accessDenied;
        Handle handle = 0;
        /// 1: the key was made; 2: it existed.
        std::uint32_t disposition = 0;
    };

    virtual ~Registry() = default;
    /// `access`: 25 reads, 63 reads and writes.
    virtual Opened open(std::uint32_t hive, const std::string& key, std::uint32_t access) = 0;
    virtual Created create(std::uint32_t hive, const std::string& key, std::uint32_t access) = 0;
    virtual RegistryStatus flush(Handle handle) = 0;
    virtual RegistryStatus query(Handle handle, const std::string& name, Value& value) = 0;
    virtual RegistryStatus set(Handle handle, const std::string& name, const Value& value) = 0;
    virtual RegistryStatus close(Handle handle) = 0;
};

/// The services that a backend hands to the screens.
struct Services {
    Clock& clock;
    Random& random;
    Sound& sound;
    Files& files;
    Registry& registry;
    Shell& shell;
};

} // namespace klopfmeise
