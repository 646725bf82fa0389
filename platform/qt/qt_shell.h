#pragma once

#include "platform/machine/services.h"

namespace klopfmeise {

class FileLock {
public:
    FileLock() = default;
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    /// True if this process holds the lock or the file cannot be made at all; false if another process holds
    /// it.
    bool acquire(const std::string& path);

private:
    int descriptor_ = -1;
};

/// The desktop behind the program.
class QtShell final : public Shell {
public:
    /// `commonData`: folder of application data common to all users, as this machine writes it.
    QtShell(const Files& files, std::string commonData);

    void openDocument(const std::wstring& target) override;
    void showFolder(const std::wstring& path) override;
    std::wstring chooseFolder(const std::wstring& title) override;
    std::wstring commonDataFolder() override;
    std::wstring programFolder() override;
    bool secondInstance() override;
    wchar_t decimalSign() override;

private:
    const Files& files_;
    std::string commonData_;
    FileLock lock_;
};

} // namespace klopfmeise
