#include "platform/machine/reg_file.h"

#include "platform/machine/reg_text.h"
#include "platform/machine/whole_file.h"
#include "platform/values/text.h"
#include "platform/values/windows1252.h"

#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace klopfmeise {

namespace {

/// The content of the file, empty where there is none; no value if it cannot be read.
std::optional<std::string> contentOf(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file)
        return errno == ENOENT || errno == ENOTDIR ? std::optional(std::string()) : std::nullopt;
    return readWhole(file, std::numeric_limits<std::size_t>::max());
}

bool may(const std::string& place, int what) { return ::access(place.c_str(), what) == 0; }

/// Makes a folder and the ones that it lies in, for every user to read whatever the umask.
void makeFolders(const std::string& folder) {
    if (may(folder, F_OK))
        return;
    if (const std::string above = folderOf(folder); above != folder)
        makeFolders(above);
    constexpr mode_t readable = 0755;
    if (::mkdir(folder.c_str(), readable) == 0)
        ::chmod(folder.c_str(), readable);
}

/// The rights of the machine's file: everyone reads, only who lays it writes. An old file keeps its own.
Rights rightsAt(const std::string& path) {
    const Descriptor old(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    return old ? rightsOf(old) : Rights{};
}

} // namespace

Registry::Opened RegFile::open(std::uint32_t hive, const std::string& key, std::uint32_t access) {
    Key opened{.name = fromWindows1252(key), .writable = access == writeAccess, .values = {}, .changed = {}};
    const RegText text(contentOf(path_).value_or(std::string()));
    if (hive != localMachine || !text.hasKey(opened.name))
        return {RegistryStatus::fileNotFound, 0};
    if (opened.writable && !writable())
        return {RegistryStatus::accessDenied, 0};
    opened.values = text.values(opened.name);
    open_.emplace(++last_, std::move(opened));
    return {RegistryStatus::success, last_};
}

Registry::Created RegFile::create(std::uint32_t hive, const std::string& key, std::uint32_t access) {
    if (const Opened existing = open(hive, key, access); existing.status != RegistryStatus::fileNotFound)
        return {existing.status, existing.handle, 2};
    if (hive != localMachine || !writable())
        return {RegistryStatus::accessDenied, 0, 0};
    Key made{.name = fromWindows1252(key), .writable = true, .values = {}, .changed = {}};
    if (save(made) != RegistryStatus::success)
        return {RegistryStatus::accessDenied, 0, 0};
    open_.emplace(++last_, std::move(made));
    return {RegistryStatus::success, last_, 1};
}

RegFile::Key* RegFile::find(Handle handle) {
    const auto found = open_.find(handle);
    return found == open_.end() ? nullptr : &found->second;
}

RegistryStatus RegFile::flush(Handle handle) {
    Key* key = find(handle);
    if (!key)
        return RegistryStatus::invalidHandle;
    return key->changed.empty() ? RegistryStatus::success : save(*key);
}

RegistryStatus RegFile::query(Handle handle, const std::string& name, Value& value) {
    const Key* key = find(handle);
    if (!key)
        return RegistryStatus::invalidHandle;
    const auto found = key->values.find(upper(fromWindows1252(name)));
    if (found == key->values.end())
        return RegistryStatus::fileNotFound;
    value = found->second;
    return RegistryStatus::success;
}

RegistryStatus RegFile::set(Handle handle, const std::string& name, const Value& value) {
    Key* key = find(handle);
    if (!key)
        return RegistryStatus::invalidHandle;
    if (!key->writable)
        return RegistryStatus::accessDenied;
    const std::wstring text = fromWindows1252(name);
    key->values.insert_or_assign(upper(text), value);
    key->changed.push_back(text);
    return RegistryStatus::success;
}

RegistryStatus RegFile::close(Handle handle) {
    const RegistryStatus status = flush(handle);
    open_.erase(handle);
    return status;
}

bool RegFile::writable() const {
    if (may(path_, F_OK))
        return may(path_, W_OK);
    std::string folder = folderOf(path_);
    while (!may(folder, F_OK) && folderOf(folder) != folder)
        folder = folderOf(folder);
    struct stat status {};
    return may(folder, W_OK | X_OK) && ::stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

RegistryStatus RegFile::save(Key& key) {
    // Read again: only what has been set is written, over whatever stands there by now.
    const auto before = contentOf(path_);
    if (!before)
        return RegistryStatus::accessDenied;
    RegText text(*before);
    if (!text.hasKey(key.name))
        text.addKey(key.name);
    for (const std::wstring& name : key.changed)
        text.set(key.name, name, key.values.at(upper(name)));
    const std::string after = text.bytes();
    const std::string folder = folderOf(path_);
    makeFolders(folder);
    if (after != *before && !replaceFile(path_, after, rightsAt(path_)))
        return RegistryStatus::accessDenied;
    // The name in the folder must last as the file does.
    if (const Descriptor place(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)); place)
        klopfmeise::flush(place);
    key.changed.clear();
    return RegistryStatus::success;
}

} // namespace klopfmeise
