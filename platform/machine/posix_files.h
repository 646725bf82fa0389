#pragma once

#include "platform/machine/services.h"

namespace klopfmeise {

/// The files of this machine. A name that is not there as it is written is looked for without regard to case,
/// by one listing of its folder. Hidden files and folders (a leading dot) are not listed. What is made takes
/// the rights of its folder.
class PosixFiles final : public Files {
public:
    std::unique_ptr<RecordFile> openRecords(const std::wstring& path) override;
    std::optional<std::string> readAll(const std::wstring& path, std::size_t limit) override;
    bool writeAll(const std::wstring& path, std::string_view bytes) override;
    std::wstring search(const std::wstring& path) override;
    bool folderExists(const std::wstring& path) override;
    bool isLink(const std::wstring& path) override;
    std::optional<std::vector<std::wstring>> listFiles(const std::wstring& folder,
                                                       std::wstring_view pattern) override;
    std::optional<std::vector<std::wstring>> listFolders(const std::wstring& folder) override;
    bool makeFolder(const std::wstring& path) override;
    bool removeFolder(const std::wstring& path) override;
    bool copyFile(const std::wstring& from, const std::wstring& to) override;
    bool rename(const std::wstring& from, const std::wstring& to) override;
    bool removeFile(const std::wstring& path) override;
    std::wstring shown(const std::wstring& path) const override;
    std::wstring entered(const std::wstring& text) const override;
    std::wstring absolute(const std::wstring& path) const override;
};

} // namespace klopfmeise
