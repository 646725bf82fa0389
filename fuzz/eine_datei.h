#pragma once

#include "platform/machine/services.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace klopfmeise {

/// One file in memory, which stands at every path. Beside it every lesson has the same stages.
class EineDatei final : public Files {
public:
    explicit EineDatei(std::string bytes)
        : inhalt(std::move(bytes)) {}

    std::string inhalt;
    /// The last path that was asked for.
    std::wstring pfad;

    std::unique_ptr<RecordFile> openRecords(const std::wstring& path) override {
        pfad = path;
        return std::make_unique<Satzdatei>(inhalt);
    }
    std::optional<std::string> readAll(const std::wstring& path, std::size_t limit) override {
        if (path.find(L"Lektion") != std::wstring::npos)
            return "2\r\nEinzeiler\r\nT\r\nUnterstufe1\r\na\r\nfj\r\nh\r\nUnterstufe2\r\na\r\nfj\r\nh\r\n";
        return inhalt.substr(0, limit);
    }
    bool writeAll(const std::wstring&, std::string_view bytes) override {
        inhalt = bytes;
        return true;
    }
    std::wstring search(const std::wstring& path) override { return path.substr(path.rfind(L'\\') + 1); }
    bool folderExists(const std::wstring&) override { return true; }
    bool isLink(const std::wstring&) override { return false; }
    std::optional<std::vector<std::wstring>> listFiles(const std::wstring&, std::wstring_view) override {
        return {};
    }
    std::optional<std::vector<std::wstring>> listFolders(const std::wstring&) override { return {}; }
    bool makeFolder(const std::wstring&) override { return false; }
    bool removeFolder(const std::wstring&) override { return false; }
    bool copyFile(const std::wstring&, const std::wstring&) override { return false; }
    bool rename(const std::wstring&, const std::wstring&) override { return false; }
    bool removeFile(const std::wstring&) override { return false; }
    std::wstring shown(const std::wstring& path) const override { return path; }
    std::wstring entered(const std::wstring& text) const override { return text; }
    std::wstring absolute(const std::wstring& path) const override { return path; }

private:
    class Satzdatei final : public RecordFile {
    public:
        explicit Satzdatei(std::string& bytes)
            : bytes_(bytes) {}
        std::optional<std::string> read(std::int64_t offset, std::size_t size) override {
            return bytes_.substr(std::min(static_cast<std::size_t>(offset), bytes_.size()), size);
        }
        bool write(std::int64_t offset, std::string_view bytes) override {
            const auto at = static_cast<std::size_t>(offset);
            bytes_.resize(std::max(bytes_.size(), at + bytes.size()), '\0');
            std::ranges::copy(bytes, bytes_.begin() + offset);
            return true;
        }
        bool close() override { return true; }

    private:
        std::string& bytes_;
    };
};

} // namespace klopfmeise
