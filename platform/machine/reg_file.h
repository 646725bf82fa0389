#pragma once

#include "platform/machine/services.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace klopfmeise {

/// The keys and values of a file in the syntax of exported registry files, so that an administrator can read
/// and lay it:
///
///     [HKEY_LOCAL_MACHINE\Software\Klopfmeise]
///     "Pin"="7294"
///     "Datenablage"=hex(1):2f,73,72,76,2f
///
/// A quoted string carries its terminating zero, `hex(1)` is the bytes of a string in Windows-1252 as they
/// are, `hex(7)` a multi-string, `dword:` a number. A string that the code page cannot hold, quoted or not,
/// comes and goes as UTF-8 behind its mark. The file may be stored in UTF-8, in Windows-1252, or in UTF-16
/// with a mark, and stays so. Key and value names are handed over in Windows-1252.
class RegFile final : public Registry {
public:
    /// HKEY_LOCAL_MACHINE, the only hive there is.
    static constexpr std::uint32_t localMachine = 0x80000002;
    static constexpr std::uint32_t readAccess = 25;
    static constexpr std::uint32_t writeAccess = 63;

    /// `path` in the spelling of this machine. The file is read afresh at each opening of a key.
    explicit RegFile(std::string path)
        : path_(std::move(path)) {}

    Opened open(std::uint32_t hive, const std::string& key, std::uint32_t access) override;
    Created create(std::uint32_t hive, const std::string& key, std::uint32_t access) override;
    RegistryStatus flush(Handle handle) override;
    RegistryStatus query(Handle handle, const std::string& name, Value& value) override;
    RegistryStatus set(Handle handle, const std::string& name, const Value& value) override;
    /// Writes what has been set, the folder of the file included where it is missing.
    RegistryStatus close(Handle handle) override;

private:
    struct Key {
        std::wstring name;
        bool writable = false;
        /// By their names in upper case.
        std::map<std::wstring, Value> values;
        /// Names of what has been set and not yet written.
        std::vector<std::wstring> changed;
    };

    bool writable() const;
    RegistryStatus save(Key& key);
    Key* find(Handle handle);

    std::string path_;
    std::map<Handle, Key> open_;
    Handle last_ = 0;
};

} // namespace klopfmeise
