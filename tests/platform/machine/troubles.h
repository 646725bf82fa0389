#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <vector>

namespace klopfmeise {

/// A call of the system that fails as long as the object lives: what a share that is full, or that refuses
/// something, says only then.
class FailingCall {
public:
    /// `replaceOpen`: a file does not take the place of one that is open in this program, or seems open
    /// `times` times, and that one is gone by then, as on an SMB share.
    enum class Call { none, flush, close, rename, replaceOpen };

    /// `error` is an errno. Only files below `folder` are met.
    FailingCall(Call call, int error, std::string folder, int times = 0);
    ~FailingCall();
    FailingCall(FailingCall&&) = delete;
};

/// No file grows beyond `bytes`: what is written across that border is cut there, as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes);
    ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &before_); }
    FileSizeLimit(FileSizeLimit&&) = delete;

private:
    rlimit before_{};
};

class Umask {
public:
    explicit Umask(mode_t mask)
        : before_(::umask(mask)) {}
    ~Umask() { ::umask(before_); }
    Umask(Umask&&) = delete;

private:
    mode_t before_;
};

/// An entry of an access list: the owner, a user by number, the owning group, the bound of the two before it,
/// all others; and what it may, as in a mode.
struct Access {
    enum Who : std::uint16_t { owner = 0x01, user = 0x02, group = 0x04, mask = 0x10, others = 0x20 };
    Who who;
    std::uint16_t may;
    std::uint32_t number = 0xFFFFFFFF;
};

/// Lays an access list, or the one that a folder hands on to what is made in it. False where the file system
/// knows none.
bool setAccess(const std::filesystem::path& path, const std::vector<Access>& entries, bool handedOn = false);
void removeAccess(const std::filesystem::path& path);

} // namespace klopfmeise
