#pragma once

#include "platform/machine/posix_files.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

enum class Störung { verweigert, kurz };
enum class Vorgang { keiner, öffnen, lesen, schreiben, schließen, sonstiger };

/// The machine's files, of which the n-th operation fails: refused, or what is written stops half-way.
class AusfallendeDateien : public Files {
public:
    explicit AusfallendeDateien(int anNummer = 0, Störung störung = Störung::verweigert)
        : rest_(anNummer)
        , störung_(störung) {}

    /// Counts anew: of the operations from now on the n-th fails, none for 0.
    void ausfallenBei(int anNummer) {
        rest_ = anNummer;
        ausfall_ = Vorgang::keiner;
    }
    /// As above, but it succeeds after all: another machine does something before it.
    void dazwischen(int vorNummer, std::function<void()> tun) {
        ausfallenBei(vorNummer);
        dazwischen_ = std::move(tun);
    }
    /// What it was that failed, or that something came before.
    Vorgang ausfall() const { return ausfall_; }
    /// Calls `tun` with every operation failing in turn, until it ends before one fails; then none fails.
    template <class Tun>
    void jederVorgang(Tun tun) {
        do {
            ausfallenBei(++nummer_);
            tun(nummer_);
        } while (ausfall_ != Vorgang::keiner);
        ausfallenBei(nummer_ = 0);
    }

    std::unique_ptr<RecordFile> openRecords(const std::wstring& path) override {
        if (trifft(Vorgang::öffnen))
            return nullptr;
        auto echt = echt_.openRecords(path);
        return echt ? std::make_unique<Datei>(std::move(echt), *this) : nullptr;
    }
    std::optional<std::string> readAll(const std::wstring& path, std::size_t limit) override {
        return trifft(Vorgang::lesen) ? std::nullopt : echt_.readAll(path, limit);
    }
    bool writeAll(const std::wstring& path, std::string_view bytes) override {
        return !trifft(Vorgang::schreiben) && echt_.writeAll(path, bytes);
    }
    std::wstring search(const std::wstring& path) override { return trifft() ? L"" : echt_.search(path); }
    bool folderExists(const std::wstring& path) override { return !trifft() && echt_.folderExists(path); }
    bool isLink(const std::wstring& path) override { return trifft() || echt_.isLink(path); }
    std::optional<std::vector<std::wstring>> listFiles(const std::wstring& folder,
                                                       std::wstring_view pattern) override {
        return trifft() ? std::nullopt : echt_.listFiles(folder, pattern);
    }
    std::optional<std::vector<std::wstring>> listFolders(const std::wstring& folder) override {
        return trifft() ? std::nullopt : echt_.listFolders(folder);
    }
    bool makeFolder(const std::wstring& path) override { return !trifft() && echt_.makeFolder(path); }
    bool removeFolder(const std::wstring& path) override { return !trifft() && echt_.removeFolder(path); }
    bool copyFile(const std::wstring& from, const std::wstring& to) override {
        return !trifft() && echt_.copyFile(from, to);
    }
    bool rename(const std::wstring& from, const std::wstring& to) override {
        return !trifft() && echt_.rename(from, to);
    }
    bool removeFile(const std::wstring& path) override { return !trifft() && echt_.removeFile(path); }
    std::wstring shown(const std::wstring& path) const override { return echt_.shown(path); }
    std::wstring entered(const std::wstring& text) const override { return echt_.entered(text); }
    std::wstring absolute(const std::wstring& path) const override { return echt_.absolute(path); }

private:
    class Datei final : public RecordFile {
    public:
        Datei(std::unique_ptr<RecordFile> echt, AusfallendeDateien& dateien)
            : echt_(std::move(echt))
            , dateien_(dateien) {}
        std::optional<std::string> read(std::int64_t offset, std::size_t size) override {
            return dateien_.trifft(Vorgang::lesen) ? std::nullopt : echt_->read(offset, size);
        }
        bool write(std::int64_t offset, std::string_view bytes) override {
            if (!dateien_.trifft(Vorgang::schreiben))
                return echt_->write(offset, bytes);
            if (dateien_.störung_ == Störung::kurz)
                echt_->write(offset, bytes.substr(0, bytes.size() / 2));
            return false;
        }
        bool close() override { return !dateien_.trifft(Vorgang::schließen) && echt_->close(); }

    private:
        std::unique_ptr<RecordFile> echt_;
        AusfallendeDateien& dateien_;
    };

    bool trifft(Vorgang vorgang = Vorgang::sonstiger) {
        if (rest_ == 0 || --rest_ > 0)
            return false;
        ausfall_ = vorgang;
        if (!dazwischen_)
            return true;
        dazwischen_();
        return false;
    }

    PosixFiles echt_;
    int rest_;
    int nummer_ = 0;
    Störung störung_;
    Vorgang ausfall_ = Vorgang::keiner;
    std::function<void()> dazwischen_;
};

} // namespace klopfmeise
