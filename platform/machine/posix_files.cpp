#include "platform/machine/posix_files.h"

#include "platform/machine/whole_file.h"
#include "platform/values/text.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace klopfmeise {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

std::string machinePath(std::wstring_view path) {
    std::string bytes = toUtf8(path);
    std::ranges::replace(bytes, '\\', '/');
    return bytes;
}

std::string withoutEndSlash(std::string path) {
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

bool exists(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0;
}

/// The entry of `folder` that has this name without regard to case; `name` itself where none has.
std::string spelled(const std::string& folder, const std::string& name) {
    const Folder open(::opendir(folder.empty() ? "." : folder.c_str()));
    if (!open)
        return name;
    const std::wstring wanted = fromUtf8(name);
    while (const dirent* entry = ::readdir(open.get()))
        if (sameName(fromUtf8(entry->d_name), wanted))
            return entry->d_name;
    return name;
}

/// The path with every component in the spelling that it has on disk. Components that do not exist stay as
/// they are.
std::string resolved(const std::string& path) {
    if (exists(path))
        return path;
    std::string found;
    std::size_t at = 0;
    while (at < path.size()) {
        if (path[at] == '/') {
            if (found.empty() || found.back() != '/')
                found += '/';
            ++at;
            continue;
        }
        const auto end = std::min(path.find('/', at), path.size());
        const std::string name = path.substr(at, end - at);
        found += exists(found + name) ? name : spelled(found, name);
        at = end;
    }
    return found;
}

class PosixRecordFile final : public RecordFile {
public:
    explicit PosixRecordFile(Descriptor file)
        : file_(std::move(file)) {}

    std::optional<std::string> read(std::int64_t offset, std::size_t size) override {
        last_ = readAt(file_, offset, size);
        lastOffset_ = offset;
        return last_;
    }
    bool write(std::int64_t offset, std::string_view bytes) override {
        // Whoever changes a record has mostly just read it.
        const bool known = last_ && lastOffset_ == offset && last_->size() >= bytes.size();
        return overwrite(file_, offset, bytes, known ? std::exchange(last_, std::nullopt) : std::nullopt);
    }
    bool close() override { return file_.close(); }

private:
    Descriptor file_;
    /// What was read last, and where.
    std::optional<std::string> last_;
    std::int64_t lastOffset_ = 0;
};

/// Opens `path`, first as written, then in the spelling on disk.
Descriptor openFound(const std::string& path, int flags) {
    Descriptor file(::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK));
    if (file || errno != ENOENT)
        return file;
    return Descriptor(::open(resolved(path).c_str(), flags | O_CLOEXEC | O_NONBLOCK));
}

std::vector<std::wstring> sortedNames(std::vector<std::wstring> names) {
    // All keys in one string: a piece of memory for each would cost more than the sorting.
    std::wstring keys;
    std::vector<std::size_t> ends;
    ends.reserve(names.size());
    for (const auto& name : names) {
        appendSortKey(keys, name);
        ends.push_back(keys.size());
    }
    std::vector<std::pair<std::wstring_view, std::wstring*>> order;
    order.reserve(names.size());
    std::size_t at = 0;
    for (std::size_t i = 0; i < names.size(); at = ends[i++])
        order.emplace_back(std::wstring_view(keys).substr(at, ends[i] - at), &names[i]);
    std::ranges::sort(order, [](const auto& a, const auto& b) {
        const int difference = a.first.compare(b.first);
        return difference != 0 ? difference < 0 : *a.second < *b.second;
    });
    std::vector<std::wstring> sorted;
    sorted.reserve(names.size());
    for (const auto& [key, name] : order)
        sorted.push_back(std::move(*name));
    return sorted;
}

template <class Wanted>
std::optional<std::vector<std::wstring>> list(const std::wstring& path, bool folders, Wanted wanted) {
    std::vector<std::wstring> names;
    std::string place = machinePath(path);
    Folder folder(::opendir(place.c_str()));
    if (!folder && errno == ENOENT) {
        place = resolved(place);
        folder.reset(::opendir(place.c_str()));
    }
    if (!folder)
        return std::nullopt;
    while (const dirent* entry = ::readdir(folder.get())) {
        // In a path of the logic a backslash parts two names: it would lead elsewhere.
        if (entry->d_name[0] == '.' || std::string_view(entry->d_name).find('\\') != std::string_view::npos)
            continue;
        bool isFolder = entry->d_type == DT_DIR;
        bool isOther = entry->d_type != DT_DIR && entry->d_type != DT_REG;
        if (entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN) {
            struct stat status {};
            if (::fstatat(::dirfd(folder.get()), entry->d_name, &status, 0) != 0)
                continue;
            isFolder = S_ISDIR(status.st_mode);
            isOther = !isFolder && !S_ISREG(status.st_mode);
        }
        if (isOther || isFolder != folders)
            continue;
        std::wstring name = fromUtf8(entry->d_name);
        if (wanted(name))
            names.push_back(std::move(name));
    }
    return sortedNames(std::move(names));
}

} // namespace

std::unique_ptr<RecordFile> PosixFiles::openRecords(const std::wstring& path) {
    const std::string place = machinePath(path);
    // A link may lead out of the folder.
    Descriptor file = openFound(place, O_RDWR | O_NOFOLLOW);
    if (!file && errno == ENOENT) {
        const std::string missing = resolved(place);
        file = makeFile(missing, O_RDWR, rightsForFileIn(folderOf(missing)));
        // Another machine may have made it since.
        if (!file && errno == EEXIST)
            file = openFound(missing, O_RDWR | O_NOFOLLOW);
    }
    if (!file && (errno == EACCES || errno == EROFS || errno == EPERM)) {
        file = openFound(place, O_RDONLY | O_NOFOLLOW);
        if (!file || !isFile(file))
            return nullptr;
    }
    return file ? std::make_unique<PosixRecordFile>(std::move(file)) : nullptr;
}

std::optional<std::string> PosixFiles::readAll(const std::wstring& path, std::size_t limit) {
    const Descriptor file = openFound(machinePath(path), O_RDONLY);
    return file ? readWhole(file, limit) : std::nullopt;
}

bool PosixFiles::writeAll(const std::wstring& path, std::string_view bytes) {
    const std::string place = resolved(machinePath(path));
    return replaceFile(place, bytes, rightsForFileIn(folderOf(place)));
}

std::wstring PosixFiles::search(const std::wstring& path) {
    const std::string place = resolved(machinePath(path));
    struct stat status {};
    if (::stat(place.c_str(), &status) != 0 || S_ISDIR(status.st_mode))
        return {};
    return fromUtf8(place.substr(place.rfind('/') + 1));
}

bool PosixFiles::folderExists(const std::wstring& path) {
    struct stat status {};
    return ::stat(resolved(machinePath(path)).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool PosixFiles::isLink(const std::wstring& path) {
    struct stat status {};
    if (::lstat(withoutEndSlash(resolved(machinePath(path))).c_str(), &status) == 0)
        return S_ISLNK(status.st_mode);
    return errno != ENOENT && errno != ENOTDIR;
}

std::optional<std::vector<std::wstring>> PosixFiles::listFiles(const std::wstring& folder,
                                                               std::wstring_view pattern) {
    return list(folder, false, [&](const std::wstring& name) { return matches(name, pattern); });
}

std::optional<std::vector<std::wstring>> PosixFiles::listFolders(const std::wstring& folder) {
    return list(folder, true, [](const std::wstring&) { return true; });
}

bool PosixFiles::makeFolder(const std::wstring& path) {
    const std::string place = withoutEndSlash(resolved(machinePath(path)));
    const Rights rights = rightsForFolderIn(folderOf(place));
    if (::mkdir(place.c_str(), rights.mode & 0777) != 0)
        return false;
    if (const Descriptor made(::open(place.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)); made)
        give(rights, made);
    return true;
}

bool PosixFiles::removeFolder(const std::wstring& path) {
    const std::string place = withoutEndSlash(resolved(machinePath(path)));
    if (::rmdir(place.c_str()) == 0)
        return true;
    if (errno != ENOTEMPTY && errno != EEXIST)
        return false;
    // What a program that crashed in the middle of a replacement left behind, no list shows and nobody
    // misses.
    if (const Folder open(::opendir(place.c_str())); open)
        while (const dirent* entry = ::readdir(open.get()))
            if (std::string_view(entry->d_name).starts_with(draftBeginning))
                ::unlink((place + "/" + entry->d_name).c_str());
    return ::rmdir(place.c_str()) == 0;
}

bool PosixFiles::copyFile(const std::wstring& from, const std::wstring& to) {
    constexpr std::size_t largest = std::size_t{256} << 20;
    const auto bytes = readAll(from, largest);
    return bytes && bytes->size() < largest && writeAll(to, *bytes);
}

bool PosixFiles::rename(const std::wstring& from, const std::wstring& to) {
    const std::string source = withoutEndSlash(resolved(machinePath(from)));
    const std::string target = withoutEndSlash(machinePath(to));
    const std::string there = resolved(target);
    // Only a change of case may meet a name that is there: nothing is replaced.
    struct stat moved {};
    struct stat met {};
    if (::stat(there.c_str(), &met) == 0 &&
        (::stat(source.c_str(), &moved) != 0 || moved.st_ino != met.st_ino || moved.st_dev != met.st_dev))
        return false;
    const std::string name = target.substr(target.rfind('/') + 1);
    return std::rename(source.c_str(), (folderOf(there) + "/" + name).c_str()) == 0;
}

bool PosixFiles::removeFile(const std::wstring& path) {
    return ::unlink(withoutEndSlash(resolved(machinePath(path))).c_str()) == 0;
}

std::wstring PosixFiles::shown(const std::wstring& path) const {
    std::wstring text = path;
    std::ranges::replace(text, L'\\', L'/');
    return text;
}

std::wstring PosixFiles::absolute(const std::wstring& path) const {
    std::error_code failed;
    const auto place = std::filesystem::absolute(machinePath(path), failed);
    return failed ? path : entered(fromUtf8(place.lexically_normal().string()));
}

std::wstring PosixFiles::entered(const std::wstring& text) const {
    std::wstring path = text;
    std::ranges::replace(path, L'/', L'\\');
    return path;
}

} // namespace klopfmeise
