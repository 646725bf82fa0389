#include "proben/tagebuch.h"

#include "platform/values/text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>
#include <utility>
#include <vector>

namespace klopfmeise {

namespace {

std::string hex(std::string_view bytes) {
    constexpr std::string_view ziffern = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char c : bytes) {
        const auto wert = static_cast<unsigned char>(c);
        text += ziffern[wert >> 4];
        text += ziffern[wert & 15];
    }
    return text;
}

std::string zeit(double sekunden) {
    std::array<char, 32> text{};
    const int länge = std::snprintf(text.data(), text.size(), "%.9f", sekunden);
    return {text.data(), static_cast<std::size_t>(länge)};
}

} // namespace

Tagebuch::Tagebuch(const std::string& datei, bool wanduhr)
    : wanduhr_(wanduhr) {
    if (datei.empty())
        return;
    nummer_ = ::open(datei.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    if (nummer_ < 0)
        throw std::runtime_error("no diary at " + datei);
}

Tagebuch::~Tagebuch() {
    if (an())
        ::close(nummer_);
}

double Tagebuch::jetzt() const {
    timespec jetzt{};
    ::clock_gettime(wanduhr_ ? CLOCK_REALTIME : CLOCK_MONOTONIC, &jetzt);
    return static_cast<double>(jetzt.tv_sec) + static_cast<double>(jetzt.tv_nsec) / 1e9;
}

void Tagebuch::zeile(const std::string& text) const {
    const std::string ganz = text + "\n";
    if (an() && ::write(nummer_, ganz.data(), ganz.size()) != static_cast<ssize_t>(ganz.size()))
        throw std::runtime_error("the diary cannot be written");
}

std::uint64_t Tagebuch::beginnen(char art, const std::string& was) {
    ++vorgänge_;
    zeile("<\t" + zeit(jetzt()) + "\t" + std::to_string(vorgänge_) + "\t" + art + "\t" + was);
    return vorgänge_;
}

void Tagebuch::enden(std::uint64_t vorgang, bool gut) const {
    zeile(">\t" + zeit(jetzt()) + "\t" + std::to_string(vorgang) + (gut ? "\t1" : "\t0"));
}

void Tagebuch::erwarten(const std::string& pfad, int satz, double wert) const {
    zeile("E\t" + zeit(jetzt()) + "\t" + pfad + "\t" + std::to_string(satz) + "\t" + std::to_string(wert));
}

std::string kennung(std::string_view bytes) {
    std::uint64_t summe = 14695981039346656037U;
    for (const char c : bytes)
        summe = (summe ^ static_cast<unsigned char>(c)) * 1099511628211U;
    return std::to_string(bytes.size()) + ":" + std::to_string(summe);
}

class Mitschreiber::Datei final : public RecordFile {
public:
    Datei(std::unique_ptr<RecordFile> echt, Tagebuch& tagebuch, std::string name)
        : echt_(std::move(echt))
        , tagebuch_(tagebuch)
        , name_(std::move(name)) {}
    ~Datei() override {
        echt_.reset();
        beenden(true);
    }

    std::optional<std::string> read(std::int64_t offset, std::size_t size) override {
        const double beginn = tagebuch_.jetzt();
        auto bytes = echt_->read(offset, size);
        if (!tagebuch_.an())
            return bytes;
        const std::string_view ganz = bytes ? std::string_view(*bytes) : "";
        tagebuch_.zeile("L\t" + zeit(beginn) + "\t" + zeit(tagebuch_.jetzt()) + "\t" + name_ + "\t" +
                        std::to_string(offset) + "\t" +
                        (bytes ? hex(ganz.substr(0, ganz.find_last_not_of('\0') + 1)) : "-"));
        return bytes;
    }
    bool write(std::int64_t offset, std::string_view bytes) override {
        if (!tagebuch_.an())
            return echt_->write(offset, bytes);
        const auto vorgang =
            tagebuch_.beginnen('W', name_ + "\t" + std::to_string(offset) + "\t" + hex(bytes));
        const bool gut = echt_->write(offset, bytes);
        offen_.emplace_back(vorgang, gut);
        return gut;
    }
    bool close() override {
        const bool gut = echt_->close();
        beenden(gut);
        return gut;
    }

private:
    void beenden(bool gut) {
        for (const auto& [vorgang, geschrieben] : std::exchange(offen_, {}))
            tagebuch_.enden(vorgang, gut && geschrieben);
    }

    std::unique_ptr<RecordFile> echt_;
    Tagebuch& tagebuch_;
    std::string name_;
    /// What was written since the file was opened, and how that ended.
    std::vector<std::pair<std::uint64_t, bool>> offen_;
};

Mitschreiber::Mitschreiber(Files& echt, Tagebuch& tagebuch, std::string wurzel)
    : echt_(echt)
    , tagebuch_(tagebuch)
    , wurzel_(std::move(wurzel)) {}

std::string Mitschreiber::name(const std::wstring& pfad) const {
    std::string text = toUtf8(pfad);
    std::ranges::replace(text, '\\', '/');
    while (text.size() > 1 && text.back() == '/')
        text.pop_back();
    return text.starts_with(wurzel_) ? text.substr(wurzel_.size()) : text;
}

std::unique_ptr<RecordFile> Mitschreiber::openRecords(const std::wstring& path) {
    if (!tagebuch_.an())
        return echt_.openRecords(path);
    std::string datei = name(path);
    if (tagebuch_.erstmals(datei))
        tagebuch_.zeile("O\t" + zeit(tagebuch_.jetzt()) + "\t" + datei);
    auto echt = echt_.openRecords(path);
    if (echt)
        return std::make_unique<Datei>(std::move(echt), tagebuch_, std::move(datei));
    tagebuch_.zeile("F\t" + zeit(tagebuch_.jetzt()) + "\t" + datei);
    return nullptr;
}

std::optional<std::string> Mitschreiber::readAll(const std::wstring& path, std::size_t limit) {
    const double beginn = tagebuch_.jetzt();
    auto bytes = echt_.readAll(path, limit);
    if (bytes && bytes->size() < limit)
        tagebuch_.zeile("V\t" + zeit(beginn) + "\t" + zeit(tagebuch_.jetzt()) + "\t" + name(path) + "\t" +
                        kennung(*bytes));
    return bytes;
}

bool Mitschreiber::writeAll(const std::wstring& path, std::string_view bytes) {
    return vermerkt('T', name(path) + "\t" + kennung(bytes), [&] { return echt_.writeAll(path, bytes); });
}

bool Mitschreiber::makeFolder(const std::wstring& path) {
    return vermerkt('M', name(path), [&] { return echt_.makeFolder(path); });
}

bool Mitschreiber::removeFolder(const std::wstring& path) {
    return vermerkt('X', name(path), [&] { return echt_.removeFolder(path); });
}

bool Mitschreiber::copyFile(const std::wstring& from, const std::wstring& to) {
    return vermerkt('C', name(to) + "\t" + name(from), [&] { return echt_.copyFile(from, to); });
}

bool Mitschreiber::rename(const std::wstring& from, const std::wstring& to) {
    return vermerkt('R', name(from) + "\t" + name(to), [&] { return echt_.rename(from, to); });
}

bool Mitschreiber::removeFile(const std::wstring& path) {
    return vermerkt('D', name(path), [&] { return echt_.removeFile(path); });
}

} // namespace klopfmeise
