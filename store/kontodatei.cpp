#include "store/kontodatei.h"

#include "platform/values/windows1252.h"

#include <algorithm>

namespace klopfmeise {

namespace {

constexpr int angelegteSätze = 100;
constexpr std::int16_t üblicheDurchgangszahl = 3;

std::int64_t anfang(int satz) {
    return std::int64_t{satz - 1} * static_cast<std::int64_t>(Kontodatei::Satzlänge);
}

} // namespace

Kontodatei::Kontodatei(Files& dateien, const std::wstring& pfad)
    : datei_(dateien.openRecords(pfad))
    , gut_(datei_ != nullptr) {}

std::string Kontodatei::lesenBytes(int satz) {
    if (!datei_)
        return {};
    auto bytes = datei_->read(anfang(satz), Satzlänge);
    gut_ = gut_ && bytes.has_value();
    return bytes.value_or(std::string());
}

bool Kontodatei::schreibenBytes(int satz, const std::string& bytes) {
    const bool ok = datei_ && datei_->write(anfang(satz), bytes);
    gut_ = gut_ && ok;
    return ok;
}

Wert Kontodatei::lesen(int satz) { return wertAus(lesenBytes(satz)); }

bool Kontodatei::schreiben(int satz, const Wert& wert) {
    return schreibenBytes(satz, bytesAus(wert, Satzlänge));
}

bool Kontodatei::schreiben(Kontosatz erster, std::span<const Wert> werte) {
    std::string bytes;
    for (std::size_t i = 0; i < werte.size(); ++i) {
        bytes.resize(i * Satzlänge, '\0');
        bytes += bytesAus(werte[i], Satzlänge);
    }
    return schreibenBytes(static_cast<int>(erster), bytes);
}

std::wstring Kontodatei::lesenText(int satz) {
    const std::string bytes = lesenBytes(satz);
    if (bytes.size() < 2)
        return {};
    const auto länge = static_cast<std::size_t>(static_cast<unsigned char>(bytes[0])) |
                       static_cast<std::size_t>(static_cast<unsigned char>(bytes[1])) << 8;
    return länge + 2 > bytes.size() ? std::wstring()
                                    : fromWindows1252(std::string_view(bytes).substr(2, länge));
}

bool Kontodatei::schreibenText(int satz, std::wstring_view text) {
    const std::string inhalt = toWindows1252(text).substr(0, Satzlänge - 2);
    std::string bytes;
    bytes += static_cast<char>(inhalt.size() & 0xFF);
    bytes += static_cast<char>(inhalt.size() >> 8);
    return schreibenBytes(satz, bytes + inhalt);
}

bool Kontodatei::schließen() {
    const bool ok = datei_ && datei_->close();
    datei_.reset();
    gut_ = gut_ && ok;
    return gut_;
}

bool Kontodatei::WerteSchreiben() {
    std::string bild(angelegteSätze * Satzlänge, '\0');
    const auto einsetzen = [&](int satz, std::int16_t zahl) {
        const std::string wert = bytesAus(zahl, Satzlänge);
        std::ranges::copy(wert, bild.begin() + anfang(satz));
    };
    for (int satz = 1; satz <= angelegteSätze; ++satz)
        einsetzen(satz, 0);
    einsetzen(static_cast<int>(Kontosatz::Durchgangszahl), üblicheDurchgangszahl);
    return schreibenBytes(1, bild);
}

} // namespace klopfmeise
