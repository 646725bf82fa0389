#include "verwaltung/rechte.h"

#include "platform/machine/rights.h"
#include "verwaltung/ablage.h"

#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace klopfmeise {

namespace {

std::string ohneSchrägstrich(std::string pfad) {
    while (pfad.size() > 1 && pfad.back() == '/')
        pfad.pop_back();
    return pfad;
}

std::string ort(const Files& dateien, const std::wstring& pfad) {
    return ohneSchrägstrich(maschinenpfad(dateien, pfad));
}

std::optional<struct stat> stand(const std::string& pfad) {
    struct stat status {};
    if (::lstat(pfad.c_str(), &status) != 0)
        return std::nullopt;
    return status;
}

/// Of a folder that others lie in; the data folder itself may be reached by a link.
std::optional<struct stat> ordnerstand(const std::string& pfad) {
    struct stat status {};
    if (::stat(pfad.c_str(), &status) != 0)
        return std::nullopt;
    return status;
}

/// Bits that a folder can ask of what lies in it: not those of the owner, who may take away his own.
constexpr mode_t verlangt = S_ISGID | S_IRWXG | S_IRWXO;

} // namespace

std::wstring Rechtemangel::text() const {
    std::wstring aus;
    const auto dazu = [&](bool ja, const wchar_t* was) {
        if (ja)
            aus += (aus.empty() ? L"" : L", ") + std::wstring(was);
    };
    dazu((fehlend & (S_IRGRP | S_IXGRP)) != 0, L"die Gruppe darf nicht lesen");
    dazu((fehlend & S_IWGRP) != 0, L"die Gruppe darf nicht schreiben");
    dazu((fehlend & S_IRWXO) != 0, L"andere dürfen weniger als im Ordner darüber");
    dazu((fehlend & S_ISGID) != 0, L"das setgid-Bit fehlt");
    dazu(klebend, L"das Sticky-Bit ist gesetzt");
    dazu(fremdeGruppe, L"die Gruppe ist eine andere als die des Ordners darüber");
    dazu(ohneVorgabeliste, L"die Zugriffsliste wird nicht weitergegeben");
    return aus;
}

std::optional<Rechtemangel> rechtemangel(const Files& dateien, const std::wstring& ordner,
                                         const std::wstring& pfad) {
    const std::string innen = ort(dateien, pfad);
    const auto ist = stand(innen);
    const auto außen = ordnerstand(ort(dateien, ordner));
    if (!ist || !außen)
        return std::nullopt;
    const bool istOrdner = S_ISDIR(ist->st_mode);
    const Rights soll =
        istOrdner ? rightsForFolderIn(ort(dateien, ordner)) : rightsForFileIn(ort(dateien, ordner));
    Rechtemangel mangel;
    mangel.klebend = istOrdner && (ist->st_mode & S_ISVTX) != 0;
    if (soll.inherited) {
        mangel.ohneVorgabeliste = istOrdner && !rightsForFolderIn(innen).inherited;
        return mangel;
    }
    mangel.fehlend = soll.mode & verlangt & ~ist->st_mode;
    const bool gruppeTeilt = (außen->st_mode & S_IWGRP) != 0;
    mangel.fremdeGruppe = gruppeTeilt && ist->st_gid != außen->st_gid;
    return mangel;
}

bool rechteAngleichen(const Files& dateien, const std::wstring& ordner, const std::wstring& pfad) {
    const auto mangel = rechtemangel(dateien, ordner, pfad);
    const auto außen = ordnerstand(ort(dateien, ordner));
    if (!mangel || !außen)
        return false;
    const Descriptor offen(
        ::open(ort(dateien, pfad).c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat ist {};
    if (!offen || ::fstat(offen.number(), &ist) != 0)
        return false;
    // A change of group may take the setgid bit away, so the mode comes last. Bits for the group are given to
    // no other group than the folder's.
    if (mangel->fremdeGruppe && ::fchown(offen.number(), static_cast<uid_t>(-1), außen->st_gid) != 0)
        return false;
    const mode_t klebend = mangel->klebend ? S_ISVTX : 0;
    const mode_t modus = ((ist.st_mode & 07777) | mangel->fehlend) & ~klebend;
    if (::fchmod(offen.number(), modus) != 0)
        return false;
    const auto danach = rechtemangel(dateien, ordner, pfad);
    return danach && !danach->mangelhaft();
}

bool geteilt(const Files& dateien, const std::wstring& ordner) {
    const auto ist = ordnerstand(ort(dateien, ordner));
    return ist &&
           ((ist->st_mode & (S_IWGRP | S_IWOTH)) != 0 || rightsForFolderIn(ort(dateien, ordner)).inherited);
}

void demOrdnerÜbereignen(const Files& dateien, const std::wstring& ordner, const std::wstring& pfad) {
    if (::geteuid() != 0)
        return;
    if (const auto außen = ordnerstand(ort(dateien, ordner))) [[maybe_unused]]
        const int egal = ::lchown(ort(dateien, pfad).c_str(), außen->st_uid, static_cast<gid_t>(-1));
}

std::optional<double> alter(const Files& dateien, const std::wstring& pfad) {
    const auto ist = stand(ort(dateien, pfad));
    if (!ist)
        return std::nullopt;
    return std::difftime(std::time(nullptr), ist->st_mtime);
}

} // namespace klopfmeise
