#pragma once

#include "platform/machine/services.h"

#include <map>
#include <utility>

namespace klopfmeise {

/// The keys and values of a file in the syntax of exported registry files, so that an administrator can read
/// and lay it:
///
///     [HKEY_LOCAL_MACHINE\Software\Klopfmeise]
///     "Pin"="7294"
///     "Datenablage"=hex(1):2f,73,72,76,2f
///
/// A quoted string carries its terminating zero, `hex(1)` is the bytes of a string in Windows-1252 as they
/// are, `hex(7)` a multi-string, `dword:` a number. Lines that are none of these are kept when the file is
/// written again. Names of keys and values compare without regard to case.
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
    /// Writes what has been set: a temporary file beside the real one, flushed, then renamed over it.
    RegistryStatus close(Handle handle) override;

private:
    struct Key {
        std::string name;
        bool writable = false;
        bool changed = false;
        std::map<std::string, Value> values;
    };

    bool writable() const;
    RegistryStatus save(Key& key);
    Key* find(Handle handle);

    std::string path_;
    std::map<Handle, Key> open_;
    Handle last_ = 0;
};

} // namespace klopfmeise
