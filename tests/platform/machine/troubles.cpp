#include "tests/platform/machine/troubles.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>

namespace klopfmeise {

namespace {

using Call = FailingCall::Call;

struct Trouble {
    Call call = Call::none;
    int error = 0;
    std::string folder;
    int times = 0;
};
Trouble trouble;

bool meets(Call call, std::string_view path) {
    if (trouble.call != call || !path.starts_with(trouble.folder))
        return false;
    errno = trouble.error;
    return true;
}

bool meets(Call call, int descriptor) {
    std::error_code none;
    return trouble.call == call &&
           meets(call,
                 std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), none).string());
}

bool openHere(const std::filesystem::path& path) {
    std::error_code none;
    for (const auto& descriptor : std::filesystem::directory_iterator("/proc/self/fd"))
        if (std::filesystem::read_symlink(descriptor, none) == path)
            return true;
    return false;
}

/// Takes the old file away where it is open.
bool meetsOpen(const char* path) {
    if (trouble.call != Call::replaceOpen || (!openHere(path) && trouble.times-- <= 0) ||
        !meets(Call::replaceOpen, path))
        return false;
    ::unlink(path);
    errno = trouble.error;
    return true;
}

} // namespace

FailingCall::FailingCall(Call call, int error, std::string folder, int times) {
    trouble = {call, error, std::move(folder), times};
}

FailingCall::~FailingCall() { trouble = {}; }

FileSizeLimit::FileSizeLimit(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

bool setAccess(const std::filesystem::path& path, const std::vector<Access>& entries, bool handedOn) {
    std::string bytes("\2\0\0\0", 4);
    for (const Access& entry : entries)
        for (const std::uint32_t number : {entry.who | std::uint32_t{entry.may} << 16, entry.number})
            for (int shift = 0; shift < 32; shift += 8)
                bytes += static_cast<char>(number >> shift & 0xFF);
    const char* name = handedOn ? "system.posix_acl_default" : "system.posix_acl_access";
    return ::setxattr(path.c_str(), name, bytes.data(), bytes.size(), 0) == 0;
}

void removeAccess(const std::filesystem::path& path) {
    for (const char* name : {"system.posix_acl_access", "system.posix_acl_default"})
        ::removexattr(path.c_str(), name);
}

} // namespace klopfmeise

// In this program these take the place of the system's own calls.
extern "C" {

int fsync(int descriptor) {
    return klopfmeise::meets(klopfmeise::Call::flush, descriptor)
               ? -1
               : static_cast<int>(::syscall(SYS_fsync, descriptor));
}

int close(int descriptor) {
    const bool fails = klopfmeise::meets(klopfmeise::Call::close, descriptor);
    const auto result = static_cast<int>(::syscall(SYS_close, descriptor));
    if (fails)
        errno = klopfmeise::trouble.error;
    return fails ? -1 : result;
}

int rename(const char* from, const char* to) noexcept {
    if (klopfmeise::meets(klopfmeise::Call::rename, to) || klopfmeise::meetsOpen(to))
        return -1;
    return static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
}
