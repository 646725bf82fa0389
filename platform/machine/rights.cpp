#include "platform/machine/rights.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace klopfmeise {

namespace {

constexpr const char* accessListName = "system.posix_acl_access";
constexpr const char* defaultListName = "system.posix_acl_default";

// An access list as the system keeps it: four bytes of version, then entries of eight bytes, little-endian:
// tag (2), permissions (2), user or group (4).
constexpr std::size_t listHead = 4;
constexpr std::size_t listEntry = 8;
constexpr std::size_t permissionsAt = 2;
constexpr char tagOwningGroup = 0x04;
constexpr char tagOthers = 0x20;
constexpr char execute = 1;

std::string listBytes(auto read) {
    std::string value(4096, '\0');
    const ssize_t size = read(value.data(), value.size());
    value.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    return value;
}

std::string listOf(const std::string& folder, const char* name) {
    return listBytes([&](char* to, std::size_t size) { return ::getxattr(folder.c_str(), name, to, size); });
}

template <class Change>
void changeEntries(std::string& list, Change change) {
    for (std::size_t at = listHead; at + listEntry <= list.size(); at += listEntry)
        change(list[at], list[at + permissionsAt]);
}

/// The owning group gets what all others get.
void levelGroup(Rights& rights) {
    rights.mode = (rights.mode & ~mode_t{S_ISGID | S_IRWXG}) | (rights.mode & S_IRWXO) << 3;
    char others = 0;
    changeEntries(rights.accessList, [&](char tag, char permissions) {
        if (tag == tagOthers)
            others = permissions;
    });
    changeEntries(rights.accessList, [&](char tag, char& permissions) {
        if (tag == tagOwningGroup)
            permissions = others;
    });
}

Rights rightsIn(const std::string& folder) {
    Rights rights{.mode = 0777, .owner = {}, .group = {}, .accessList = {}, .inherited = false};
    struct stat status {};
    if (::stat(folder.c_str(), &status) != 0)
        return rights;
    rights.group = status.st_gid;
    rights.inherited = !listOf(folder, defaultListName).empty();
    if (rights.inherited)
        return rights;
    // Not the sticky bit: a class made by one teacher can be deleted by another.
    rights.mode = (status.st_mode & (S_ISGID | 0777)) | S_IRWXU;
    rights.accessList = listOf(folder, accessListName);
    return rights;
}

} // namespace

Rights rightsForFolderIn(const std::string& folder) { return rightsIn(folder); }

Rights rightsForFileIn(const std::string& folder) {
    Rights rights = rightsIn(folder);
    rights.mode &= 0666;
    changeEntries(rights.accessList,
                  [](char, char& permissions) { permissions = static_cast<char>(permissions & ~execute); });
    return rights;
}

Rights rightsOf(const Descriptor& file) {
    Rights rights;
    struct stat status {};
    if (::fstat(file.number(), &status) != 0)
        return rights;
    rights.mode = status.st_mode & 0777;
    rights.owner = status.st_uid;
    rights.group = status.st_gid;
    rights.accessList = listBytes(
        [&](char* to, std::size_t size) { return ::fgetxattr(file.number(), accessListName, to, size); });
    return rights;
}

void give(const Rights& rights, const Descriptor& made) {
    struct stat now {};
    if (::fstat(made.number(), &now) != 0)
        return;
    Rights due = rights;
    const bool strange = due.group && *due.group != now.st_gid &&
                         ::fchown(made.number(), static_cast<uid_t>(-1), *due.group) != 0;
    if (!due.inherited) {
        // A user outside the folder's group cannot hand the file to it. Its own group must not get what is
        // meant for that one.
        if (strange)
            levelGroup(due);
        const bool listed =
            !due.accessList.empty() &&
            ::fsetxattr(made.number(), accessListName, due.accessList.data(), due.accessList.size(), 0) == 0;
        if (!listed && (strange ? (now.st_mode & 07777) != due.mode : (due.mode & ~now.st_mode) != 0))
            ::fchmod(made.number(), due.mode);
    }
    // Last: whoever gives a file away can no longer change it.
    if (due.owner && *due.owner != now.st_uid) [[maybe_unused]]
        const int given = ::fchown(made.number(), *due.owner, static_cast<gid_t>(-1));
}

Descriptor makeFile(const std::string& place, int flags, const Rights& rights) {
    Descriptor made(::open(place.c_str(), flags | O_CREAT | O_EXCL | O_CLOEXEC, rights.mode & 0777));
    if (made)
        give(rights, made);
    return made;
}

} // namespace klopfmeise
