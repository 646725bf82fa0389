#include "platform/machine/descriptor.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace klopfmeise {

namespace {

/// How many of the bytes arrived. A full disk takes the first ones and refuses the rest at the next call.
std::size_t writeAt(const Descriptor& file, std::int64_t offset, std::string_view bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::pwrite(file.number(), bytes.data() + done, bytes.size() - done,
                                   static_cast<off_t>(offset + static_cast<std::int64_t>(done)));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            break;
        done += static_cast<std::size_t>(n);
    }
    return done;
}

} // namespace

Descriptor::Descriptor(Descriptor&& other) noexcept
    : number_(std::exchange(other.number_, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    if (this != &other) {
        close();
        number_ = std::exchange(other.number_, -1);
    }
    return *this;
}

bool Descriptor::close() {
    if (number_ < 0)
        return true;
    // Interrupted or not, the number is free again: another call would close what has been opened meanwhile.
    return ::close(std::exchange(number_, -1)) == 0 || errno == EINTR;
}

bool isFile(const Descriptor& file) {
    struct stat status {};
    return ::fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode);
}

std::optional<std::string> readAt(const Descriptor& file, std::int64_t offset, std::size_t size) {
    std::string bytes(size, '\0');
    std::size_t got = 0;
    while (got < size) {
        const ssize_t n = ::pread(file.number(), bytes.data() + got, size - got,
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

bool overwrite(const Descriptor& file, std::int64_t offset, std::string_view bytes,
               std::optional<std::string> before) {
    if (!before)
        before = readAt(file, offset, bytes.size());
    if (!before)
        return false;
    // Where as much stood there as is written, the file does not grow and its length need not be asked.
    struct stat then {};
    const bool grows = before->size() < bytes.size();
    if (grows && ::fstat(file.number(), &then) != 0)
        return false;
    const std::size_t done = writeAt(file, offset, bytes);
    if (done == bytes.size())
        return true;
    writeAt(file, offset, std::string_view(*before).substr(0, done));
    // Cut only what this write has added: another machine may have added to the file as well.
    struct stat now {};
    const off_t end = static_cast<off_t>(offset) + static_cast<off_t>(done);
    if (grows && done > 0 && ::fstat(file.number(), &now) == 0 && now.st_size > then.st_size &&
        now.st_size == end) [[maybe_unused]]
        const int cut = ::ftruncate(file.number(), then.st_size);
    return false;
}

bool flush(const Descriptor& file) {
    // Some file systems know no flush and say so; that is no failure of the write.
    return ::fsync(file.number()) == 0 || errno == EINVAL || errno == EROFS || errno == ENOTSUP ||
           errno == ENOSYS;
}

} // namespace klopfmeise
