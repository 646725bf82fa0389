#pragma once

#include "platform/machine/services.h"

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>

namespace klopfmeise {

/// What a process reads and writes, a line each, in a file of its own. A line is there as soon as the call
/// returns, whatever becomes of the process. Fields are parted by tabs, times are seconds.
///
///     <  time number kind path …   something is begun (kinds: W record, T whole file, C copy, R rename,
///                                  D file goes, M folder made, X folder goes)
///     >  time number 0|1           it ended, well or not; for records once the file is closed
///     L  begin end path offset hex what a record was found to be, without the zeros at its end
///     V  begin end path mark       what a whole file was found to be
///     O  time path                 a file of records is opened for the first time, and perhaps made
///     F  time path                 it could not be opened
///     E  time path record number   what the player expects there by what it saw on the screen
class Tagebuch {
public:
    /// Without a file nothing is noted. `wanduhr`: times are those of the day, for machines that share no
    /// other clock.
    explicit Tagebuch(const std::string& datei, bool wanduhr = false);
    ~Tagebuch();
    Tagebuch(const Tagebuch&) = delete;
    Tagebuch& operator=(const Tagebuch&) = delete;

    bool an() const { return nummer_ >= 0; }
    double jetzt() const;
    void zeile(const std::string& text) const;
    std::uint64_t beginnen(char art, const std::string& was);
    void enden(std::uint64_t vorgang, bool gut) const;
    void erwarten(const std::string& pfad, int satz, double wert) const;
    bool erstmals(const std::string& pfad) { return gesehen_.insert(pfad).second; }

private:
    int nummer_ = -1;
    bool wanduhr_ = false;
    std::uint64_t vorgänge_ = 0;
    std::set<std::string> gesehen_;
};

/// Length and a sum of a whole file; the checker reckons it anew.
std::string kennung(std::string_view bytes);

/// The files of the machine, with a diary of what is done below one folder.
class Mitschreiber final : public Files {
public:
    /// `wurzel` as this machine writes paths, with its closing slash; other paths are noted in full.
    Mitschreiber(Files& echt, Tagebuch& tagebuch, std::string wurzel);

    /// As the diary calls a path of the logic.
    std::string name(const std::wstring& pfad) const;

    std::unique_ptr<RecordFile> openRecords(const std::wstring& path) override;
    std::optional<std::string> readAll(const std::wstring& path, std::size_t limit) override;
    bool writeAll(const std::wstring& path, std::string_view bytes) override;
    bool makeFolder(const std::wstring& path) override;
    bool removeFolder(const std::wstring& path) override;
    bool copyFile(const std::wstring& from, const std::wstring& to) override;
    bool rename(const std::wstring& from, const std::wstring& to) override;
    bool removeFile(const std::wstring& path) override;

    std::wstring search(const std::wstring& path) override { return echt_.search(path); }
    bool folderExists(const std::wstring& path) override { return echt_.folderExists(path); }
    bool isLink(const std::wstring& path) override { return echt_.isLink(path); }
    std::optional<std::vector<std::wstring>> listFiles(const std::wstring& folder,
                                                       std::wstring_view pattern) override {
        return echt_.listFiles(folder, pattern);
    }
    std::optional<std::vector<std::wstring>> listFolders(const std::wstring& folder) override {
        return echt_.listFolders(folder);
    }
    std::wstring shown(const std::wstring& path) const override { return echt_.shown(path); }
    std::wstring entered(const std::wstring& text) const override { return echt_.entered(text); }
    std::wstring absolute(const std::wstring& path) const override { return echt_.absolute(path); }

private:
    class Datei;

    template <class Tun>
    bool vermerkt(char art, const std::string& was, Tun tun) {
        if (!tagebuch_.an())
            return tun();
        const auto vorgang = tagebuch_.beginnen(art, was);
        const bool gut = tun();
        tagebuch_.enden(vorgang, gut);
        return gut;
    }

    Files& echt_;
    Tagebuch& tagebuch_;
    std::string wurzel_;
};

} // namespace klopfmeise
