#include "platform/machine/whole_file.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace klopfmeise {

namespace {

enum class Placed { yes, no, refused };

/// Whether a share that failed to make a file or to rename one does not allow it at all. Everything else, a
/// full disk above all, would meet the old file as well.
bool isRefusal(int error) {
    return error == EACCES || error == EPERM || error == EROFS || error == EINVAL || error == ENAMETOOLONG ||
           error == EBUSY || error == ENOTSUP || error == EXDEV || error == ETXTBSY;
}

bool written(Descriptor& file, std::string_view bytes) {
    // All three in any case, and the closing last.
    const bool arrived = overwrite(file, 0, bytes) && flush(file);
    return file.close() && arrived;
}

/// Puts a draft in the place of the file that is there. An SMB share refuses to replace a file that is open
/// somewhere on this machine, and its client has taken that file away by then: the name comes free once it is
/// closed, and only then is there a file of this name again. Of another refusal the file that is there knows
/// nothing.
Placed renamed(const std::string& draft, const std::string& place, bool there) {
    using namespace std::chrono_literals;
    constexpr auto pause = 50ms;
    constexpr int attempts = 40;
    for (int i = 1;; ++i) {
        if (std::rename(draft.c_str(), place.c_str()) == 0)
            return Placed::yes;
        if (!isRefusal(errno))
            return Placed::no;
        if (!there || i == attempts || Descriptor(::open(place.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) ||
            errno != ENOENT)
            return Placed::refused;
        std::this_thread::sleep_for(pause);
    }
}

/// Writes a new file beside `place` and renames it. Its leading dot keeps it out of all lists meanwhile.
Placed putInPlace(const std::string& place, bool there, std::string_view bytes, const Rights& rights) {
    constexpr int attempts = 100;
    const std::string beginning =
        folderOf(place) + "/" + std::string(draftBeginning) + std::to_string(::getpid()) + "-";
    Descriptor file;
    std::string name;
    // On a shared folder another machine may have a process of the same number.
    for (int i = 0; !file && i < attempts; ++i) {
        name = beginning + std::to_string(i);
        file = makeFile(name, O_RDWR, rights);
        if (!file && errno != EEXIST)
            break;
    }
    if (!file)
        return isRefusal(errno) ? Placed::refused : Placed::no;
    const Placed result = written(file, bytes) ? renamed(name, place, there) : Placed::no;
    if (result != Placed::yes)
        ::unlink(name.c_str());
    return result;
}

bool writeOver(Descriptor& file, std::string_view bytes) {
    struct stat before {};
    if (::fstat(file.number(), &before) != 0)
        return false;
    const auto old = readWhole(file, static_cast<std::size_t>(before.st_size));
    if (!old || !overwrite(file, 0, bytes))
        return false;
    const bool arrived = ::ftruncate(file.number(), static_cast<off_t>(bytes.size())) == 0 && flush(file);
    if (!arrived && overwrite(file, 0, *old)) [[maybe_unused]]
        const int cut = ::ftruncate(file.number(), before.st_size);
    return file.close() && arrived;
}

} // namespace

std::string folderOf(const std::string& place) {
    const auto slash = place.rfind('/');
    return slash == std::string::npos ? "." : place.substr(0, std::max<std::size_t>(slash, 1));
}

std::optional<std::string> readWhole(const Descriptor& file, std::size_t limit) {
    struct stat status {};
    if (::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return readAt(file, 0, std::min(limit, static_cast<std::size_t>(status.st_size)));
}

bool replaceFile(const std::string& place, std::string_view bytes, const Rights& rights) {
    // Not open while it is replaced: see `renamed`.
    const auto open = [&] { return Descriptor(::open(place.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK)); };
    Descriptor old = open();
    if (old ? !isFile(old) : errno != ENOENT)
        return false;
    const bool there = static_cast<bool>(old);
    old.close();
    // A link stays one: what it points to is replaced.
    std::error_code failed;
    const std::string target = there ? std::filesystem::canonical(place, failed).string() : place;
    const Placed placed = failed ? Placed::refused : putInPlace(target, there, bytes, rights);
    if (placed != Placed::refused)
        return placed == Placed::yes;
    if (there) {
        old = open();
        return old && isFile(old) && writeOver(old, bytes);
    }
    Descriptor made = makeFile(place, O_RDWR, rights);
    if (!made)
        return false;
    const bool arrived = written(made, bytes);
    if (!arrived)
        ::unlink(place.c_str());
    return arrived;
}

} // namespace klopfmeise
