#include "platform/values/text.h"
#include "store/mdl_dir.h"
#include "verwaltung/befehle.h"

#include <filesystem>
#include <grp.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace klopfmeise {

namespace {

constexpr const wchar_t* einstellungen = L"Gruppen\\kme.ein";

/// Makes the parts of a data folder and takes them away again if it cannot be finished.
class Anlage {
public:
    Anlage(Files& dateien, std::wstring vorlage, std::wstring ziel)
        : dateien_(dateien)
        , vorlage_(std::move(vorlage))
        , ziel_(std::move(ziel)) {}
    ~Anlage() {
        for (auto pfad = gemacht_.rbegin(); !fertig_ && pfad != gemacht_.rend(); ++pfad)
            if (!dateien_.removeFile(*pfad))
                dateien_.removeFolder(*pfad);
    }
    Anlage(const Anlage&) = delete;
    Anlage& operator=(const Anlage&) = delete;

    bool ordner(const std::wstring& pfad) {
        if (!dateien_.makeFolder(ziel_ + pfad))
            return false;
        gemacht_.push_back(ziel_ + pfad);
        return true;
    }
    bool datei(const std::wstring& pfad) {
        if (!dateien_.copyFile(vorlage_ + pfad, ziel_ + pfad))
            return false;
        gemacht_.push_back(ziel_ + pfad);
        return true;
    }
    /// A folder of the template with all that lies in it. A link may lead anywhere and is left out.
    bool baum(const std::wstring& pfad) {
        if (!ordner(pfad))
            return false;
        const auto unterordner = dateien_.listFolders(vorlage_ + pfad);
        const auto dateien = dateien_.listFiles(vorlage_ + pfad, L"*.*");
        if (!unterordner || !dateien)
            return false;
        for (const std::wstring& name : *dateien)
            if (!dateien_.isLink(vorlage_ + pfad + L"\\" + name) && !datei(pfad + L"\\" + name))
                return false;
        for (const std::wstring& name : *unterordner)
            if (!dateien_.isLink(vorlage_ + pfad + L"\\" + name) && !baum(pfad + L"\\" + name))
                return false;
        return true;
    }
    /// Something was made by the caller.
    void gemacht(const std::wstring& pfad) { gemacht_.push_back(pfad); }
    void behalten() { fertig_ = true; }

private:
    Files& dateien_;
    std::wstring vorlage_;
    std::wstring ziel_;
    std::vector<std::wstring> gemacht_;
    bool fertig_ = false;
};

/// Opens the folder for its group, before anything is made in it: all takes its rights.
bool freigeben(const std::string& ort, std::optional<gid_t> gruppe) {
    struct stat status {};
    if (gruppe && ::chown(ort.c_str(), static_cast<uid_t>(-1), *gruppe) != 0)
        return false;
    return ::stat(ort.c_str(), &status) == 0 &&
           ::chmod(ort.c_str(), (status.st_mode & 07777) | S_ISGID | S_IRWXG) == 0;
}

/// Who shares the folder, as a person reads it.
std::wstring freigabe(const std::string& ort) {
    struct stat status {};
    if (::stat(ort.c_str(), &status) != 0)
        return {};
    const group* gruppe = ::getgrgid(status.st_gid);
    return L"beschreibbar für die Benutzergruppe " +
           (gruppe ? fromUtf8(gruppe->gr_name) : std::to_wstring(status.st_gid)) + L".";
}

enum class Platz { frei, leererOrdner, belegt };

Platz platz(const std::string& ort) {
    std::error_code fehler;
    if (!std::filesystem::exists(std::filesystem::symlink_status(ort, fehler)))
        return Platz::frei;
    const bool leer = std::filesystem::is_directory(ort, fehler) && std::filesystem::is_empty(ort, fehler);
    return leer && !fehler ? Platz::leererOrdner : Platz::belegt;
}

} // namespace

Ausgang anlegen(Umfeld& umfeld, const Aufruf& aufruf) {
    Konsole& konsole = umfeld.konsole;
    Files& dateien = umfeld.dateien;
    const std::wstring ziel = pfadAus(dateien, aufruf.orte[0]);
    const std::string vorlagenort = aufruf.wert("vorlage", umfeld.vorlage);
    const std::wstring vorlage = mitBackslash(pfadAus(dateien, vorlagenort));
    if (const auto fehlend = fehlendeMarken(dateien, vorlage); !fehlend.empty()) {
        konsole.fehler(L"Die Vorlage " + fromUtf8(vorlagenort) + L" ist keine Datenablage: Darin fehlt " +
                       dateien.shown(fehlend.front()) + L". Eine andere nennt --vorlage.");
        return Ausgang::unzugänglich;
    }
    std::optional<gid_t> gruppe;
    if (aufruf.hat("gruppe")) {
        const group* gefunden = ::getgrnam(aufruf.wert("gruppe").c_str());
        if (!gefunden) {
            konsole.fehler(L"Die Benutzergruppe " + fromUtf8(aufruf.wert("gruppe")) + L" gibt es nicht.");
            return Ausgang::beanstandet;
        }
        gruppe = gefunden->gr_gid;
    }
    if (mitBackslash(ziel).starts_with(vorlage)) {
        konsole.fehler(L"Die neue Datenablage kann nicht in der Vorlage liegen.");
        return Ausgang::beanstandet;
    }
    const std::string ort = maschinenpfad(dateien, ziel);
    const Platz da = platz(ort);
    if (da == Platz::belegt || (da == Platz::frei && dateien.folderExists(ziel))) {
        konsole.fehler(fromUtf8(aufruf.orte[0]) + L" gibt es schon. Daran wird nichts geändert.");
        return Ausgang::beanstandet;
    }
    Anlage anlage(dateien, vorlage, mitBackslash(ziel));
    // Not with the rights of the folder around it, as all below it: that may be open to everyone.
    bool gut = da == Platz::leererOrdner || ::mkdir(ort.c_str(), 0777) == 0;
    if (gut && da == Platz::frei)
        anlage.gemacht(ziel);
    if (gut && !freigeben(ort, gruppe)) {
        konsole.fehler(L"Die Rechte des Ordners " + fromUtf8(aufruf.orte[0]) +
                       L" können nicht gesetzt werden.");
        return Ausgang::unzugänglich;
    }
    // The settings come last: without them nobody takes the folder for a data folder.
    gut = gut && anlage.baum(L"Data") && anlage.ordner(L"Gruppen") && anlage.datei(einstellungen);
    if (!gut) {
        konsole.fehler(L"Die Datenablage kann in " + fromUtf8(aufruf.orte[0]) + L" nicht angelegt werden.");
        return Ausgang::unzugänglich;
    }
    anlage.behalten();
    konsole.zeile(fromUtf8(aufruf.orte[0]) + L": Datenablage angelegt, " + freigabe(ort));
    return Ausgang::gut;
}

} // namespace klopfmeise
