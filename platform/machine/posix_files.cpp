#include "platform/machine/posix_files.h"

#include "platform/values/text.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace klopfmeise {

namespace {

/// A file descriptor that closes itself.
class Descriptor {
public:
    explicit Descriptor(int number)
        : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
    Descriptor(Descriptor&& other) noexcept
        : number_(std::exchange(other.number_, -1)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor& operator=(Descriptor&&) = delete;
    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }

private:
    int number_;
};

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

std::string machinePath(std::wstring_view path) {
    std::string bytes = toUtf8(path);
    std::ranges::replace(bytes, '\\', '/');
    return bytes;
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
        std::string bytes(size, '\0');
        std::size_t got = 0;
        while (got < size) {
            const ssize_t n = ::pread(file_.number(), bytes.data() + got, size - got,
                                      static_cast<off_t>(offset + static_cast<std::int64_t>(got)));
            if (n < 0 && errno == EINTR)
                continue;
            if (n < 0)
                return std::nullopt;
            if (n == 0)
                break;
            got += static_cast<std::size_t>(n);
        }
        bytes.resize(got);
        return bytes;
    }

    bool write(std::int64_t offset, std::string_view bytes) override {
        ssize_t n = 0;
        do {
            n = ::pwrite(file_.number(), bytes.data(), bytes.size(), static_cast<off_t>(offset));
        } while (n < 0 && errno == EINTR);
        return n == static_cast<ssize_t>(bytes.size());
    }

private:
    Descriptor file_;
};

bool isFile(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

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
std::vector<std::wstring> list(const std::wstring& path, bool folders, Wanted wanted) {
    std::vector<std::wstring> names;
    std::string place = machinePath(path);
    Folder folder(::opendir(place.c_str()));
    if (!folder && errno == ENOENT) {
        place = resolved(place);
        folder.reset(::opendir(place.c_str()));
    }
    if (!folder)
        return names;
    while (const dirent* entry = ::readdir(folder.get())) {
        if (entry->d_name[0] == '.')
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

bool writeFully(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = ::write(descriptor, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

} // namespace

std::unique_ptr<RecordFile> PosixFiles::openRecords(const std::wstring& path) {
    const std::string place = machinePath(path);
    Descriptor file = openFound(place, O_RDWR);
    if (!file && (errno == EACCES || errno == EROFS || errno == EPERM)) {
        Descriptor readOnly = openFound(place, O_RDONLY);
        if (!readOnly || !isFile(readOnly.number()))
            return nullptr;
        return std::make_unique<PosixRecordFile>(std::move(readOnly));
    }
    if (!file && errno == ENOENT) {
        Descriptor made(::open(resolved(place).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666));
        return made ? std::make_unique<PosixRecordFile>(std::move(made)) : nullptr;
    }
    if (!file)
        return nullptr;
    return std::make_unique<PosixRecordFile>(std::move(file));
}

std::optional<std::string> PosixFiles::readAll(const std::wstring& path, std::size_t limit) {
    const Descriptor file = openFound(machinePath(path), O_RDONLY);
    struct stat status {};
    if (!file || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    std::string bytes(std::min(limit, static_cast<std::size_t>(status.st_size)), '\0');
    std::size_t got = 0;
    while (got < bytes.size()) {
        const ssize_t n = ::read(file.number(), bytes.data() + got, bytes.size() - got);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return std::nullopt;
        if (n == 0)
            break;
        got += static_cast<std::size_t>(n);
    }
    bytes.resize(got);
    return bytes;
}

bool PosixFiles::writeAll(const std::wstring& path, std::string_view bytes) {
    // Over the old content first and cut afterwards, so that a full disk does not leave an emptied file; a
    // replacement by rename is refused by some network shares.
    const std::string place = resolved(machinePath(path));
    const Descriptor file(::open(place.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666));
    return file && writeFully(file.number(), bytes) &&
           ::ftruncate(file.number(), static_cast<off_t>(bytes.size())) == 0;
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

std::vector<std::wstring> PosixFiles::listFiles(const std::wstring& folder, std::wstring_view pattern) {
    return list(folder, false, [&](const std::wstring& name) { return matches(name, pattern); });
}

std::vector<std::wstring> PosixFiles::listFolders(const std::wstring& folder) {
    return list(folder, true, [](const std::wstring&) { return true; });
}

bool PosixFiles::makeFolder(const std::wstring& path) {
    return ::mkdir(resolved(machinePath(path)).c_str(), 0777) == 0;
}

bool PosixFiles::removeFolder(const std::wstring& path) {
    return ::rmdir(resolved(machinePath(path)).c_str()) == 0;
}

bool PosixFiles::copyFile(const std::wstring& from, const std::wstring& to) {
    constexpr std::size_t largest = std::size_t{256} << 20;
    const auto bytes = readAll(from, largest);
    return bytes && bytes->size() < largest && writeAll(to, *bytes);
}

bool PosixFiles::rename(const std::wstring& from, const std::wstring& to) {
    return std::rename(resolved(machinePath(from)).c_str(), machinePath(to).c_str()) == 0;
}

bool PosixFiles::removeFile(const std::wstring& path) {
    return ::unlink(resolved(machinePath(path)).c_str()) == 0;
}

std::wstring PosixFiles::shown(const std::wstring& path) const {
    std::wstring text = path;
    std::ranges::replace(text, L'\\', L'/');
    return text;
}

std::wstring PosixFiles::entered(const std::wstring& text) const {
    std::wstring path = text;
    std::ranges::replace(path, L'/', L'\\');
    return path;
}

} // namespace klopfmeise
