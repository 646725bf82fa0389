#include "platform/machine/whole_file.h"
#include "platform/values/text.h"
#include "verwaltung/archiv.h"
#include "verwaltung/befehle.h"
#include "verwaltung/rechte.h"

#include <filesystem>
#include <sys/stat.h>

namespace klopfmeise {

namespace {

constexpr std::size_t größteDatei = std::size_t{64} << 20;
constexpr std::size_t größteSicherung = std::size_t{1} << 30;

/// Reads a file until two readings are alike: an exercise may be writing lesson and stage at this moment, one
/// behind the other.
std::optional<std::string> ruhigGelesen(Files& dateien, const std::wstring& pfad) {
    constexpr int versuche = 5;
    auto bytes = dateien.readAll(pfad, größteDatei + 1);
    for (int i = 0; bytes && i < versuche; ++i) {
        auto nochmals = dateien.readAll(pfad, größteDatei + 1);
        if (nochmals == bytes)
            break;
        bytes = std::move(nochmals);
    }
    return bytes;
}

class Sammler {
public:
    explicit Sammler(const Ablage& ablage)
        : ablage_(ablage) {}

    void ordner(const std::wstring& unterpfad) {
        Files& dateien = ablage_.dateien();
        const std::wstring pfad = ablage_.global.Datenpfad + unterpfad;
        const auto unterordner = dateien.listFolders(pfad);
        const auto namen = dateien.listFiles(pfad, L"*.*");
        if (!unterordner || !namen) {
            ausgelassen(unterpfad, L"nicht lesbar");
            return;
        }
        aufnehmen(eintrag(unterpfad, true));
        for (const std::wstring& name : *namen)
            if (!verknüpfung(unterpfad + L"\\" + name))
                datei(unterpfad + L"\\" + name);
        for (const std::wstring& name : *unterordner)
            if (!verknüpfung(unterpfad + L"\\" + name))
                ordner(unterpfad + L"\\" + name);
    }

    const std::vector<Archiveintrag>& einträge() const { return einträge_; }
    std::size_t dateizahl() const { return dateizahl_; }
    bool vollständig() const { return vollständig_; }
    bool zuGroß() const { return größe_ > größteSicherung; }

private:
    Archiveintrag eintrag(const std::wstring& unterpfad, bool ordner) const {
        Archiveintrag neu{.pfad = maschinenpfad(ablage_.dateien(), unterpfad), .ordner = ordner};
        struct stat status {};
        const std::wstring pfad = ablage_.global.Datenpfad + unterpfad;
        if (::stat(maschinenpfad(ablage_.dateien(), pfad).c_str(), &status) == 0) {
            neu.modus = status.st_mode & 0777;
            neu.besitzer = status.st_uid;
            neu.gruppe = status.st_gid;
            neu.zeit = status.st_mtime;
        }
        return neu;
    }

    void datei(const std::wstring& unterpfad) {
        if (zuGroß())
            return;
        auto bytes = ruhigGelesen(ablage_.dateien(), ablage_.global.Datenpfad + unterpfad);
        if (!bytes) {
            ausgelassen(unterpfad, L"nicht lesbar");
        } else if (bytes->size() > größteDatei) {
            ausgelassen(unterpfad, L"zu groß");
        } else {
            Archiveintrag neu = eintrag(unterpfad, false);
            größe_ += bytes->size();
            neu.inhalt = std::move(*bytes);
            aufnehmen(std::move(neu));
        }
    }

    void aufnehmen(Archiveintrag neu) {
        if (!passtInsArchiv(neu)) {
            ausgelassen(fromUtf8(neu.pfad), L"der Name ist zu lang");
            return;
        }
        dateizahl_ += !neu.ordner;
        einträge_.push_back(std::move(neu));
    }

    bool verknüpfung(const std::wstring& unterpfad) {
        if (!ablage_.dateien().isLink(ablage_.global.Datenpfad + unterpfad))
            return false;
        ausgelassen(unterpfad, L"eine Verknüpfung");
        return true;
    }

    void ausgelassen(const std::wstring& unterpfad, const wchar_t* warum) {
        vollständig_ = false;
        ablage_.umfeld.konsole.fehler(L"Nicht gesichert: " + ablage_.gezeigt(unterpfad) + L", " + warum +
                                      L".");
    }

    const Ablage& ablage_;
    std::vector<Archiveintrag> einträge_;
    std::size_t dateizahl_ = 0;
    std::size_t größe_ = 0;
    bool vollständig_ = true;
};

} // namespace

Ausgang sichern(Umfeld& umfeld, const Aufruf& aufruf) {
    Konsole& konsole = umfeld.konsole;
    const auto ablage = ablageÖffnen(umfeld, aufruf.orte[0]);
    if (!ablage)
        return Ausgang::unzugänglich;
    namespace fs = std::filesystem;
    std::error_code fehler;
    fs::path ort = aufruf.orte[1];
    if (fs::is_directory(ort, fehler))
        ort /= "Klopfmeise-" + toUtf8(zeitpunkt(umfeld.jetzt)) + ".tar";
    if (fs::exists(fs::symlink_status(ort, fehler))) {
        konsole.fehler(fromUtf8(ort.string()) + L" gibt es schon. Eine Sicherung wird nicht ersetzt.");
        return Ausgang::beanstandet;
    }
    Sammler sammler(*ablage);
    sammler.ordner(L"Gruppen");
    sammler.ordner(L"Data\\Texte");
    if (sammler.zuGroß()) {
        konsole.fehler(L"In Gruppen und Data/Texte liegt mehr als ein Gigabyte. Das sind keine Konten; "
                       L"nichts wurde gesichert.");
        return Ausgang::beanstandet;
    }
    Rights rechte;
    rechte.mode = vertraulich;
    if (!replaceFile(ort.string(), archivAus(sammler.einträge()), rechte)) {
        konsole.fehler(L"Das Archiv " + fromUtf8(ort.string()) + L" kann nicht geschrieben werden.");
        return Ausgang::unzugänglich;
    }
    konsole.zeile(fromUtf8(ort.string()) + L": " + std::to_wstring(sammler.dateizahl()) +
                  L" Dateien gesichert.");
    return sammler.vollständig() ? Ausgang::gut : Ausgang::beanstandet;
}

} // namespace klopfmeise
