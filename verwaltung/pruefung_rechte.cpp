#include "platform/machine/whole_file.h"
#include "platform/values/text.h"
#include "store/klassen.h"
#include "store/pfade.h"
#include "store/texte.h"
#include "verwaltung/pruefung.h"
#include "verwaltung/rechte.h"

#include <filesystem>

namespace klopfmeise {

namespace {

/// A draft this young may be on its way into the place of a file at this moment. Seconds.
constexpr double jung = 3600;

/// The folder whose rights hold for what lies in `pfad`: itself, or the one above where its own are wrong.
std::wstring einenPrüfen(Prüfung& prüfung, const std::wstring& ordner, const std::wstring& pfad) {
    Files& dateien = prüfung.dateien();
    const auto mangel = rechtemangel(dateien, ordner, pfad);
    if (!mangel || !mangel->mangelhaft())
        return pfad;
    Befund befund{.pfad = pfad, .was = L"Nicht alle können damit arbeiten: " + mangel->text() + L"."};
    if (mangel->ohneVorgabeliste) {
        befund.abhilfe = L"Die Zugriffsliste des Ordners darüber mit setfacl auch hier setzen.";
    } else {
        befund.tat = L"die Rechte denen des Ordners darüber angleichen";
        befund.beheben = [&dateien, ordner, pfad] { return rechteAngleichen(dateien, ordner, pfad); };
    }
    prüfung.melden(std::move(befund));
    return ordner;
}

/// A folder in `darüber` with its files; what holds for what lies in it.
std::wstring mitDateienPrüfen(Prüfung& prüfung, const std::wstring& darüber, const std::wstring& ordner) {
    const std::wstring gilt = einenPrüfen(prüfung, darüber, ordner);
    const auto namen = prüfung.dateien().listFiles(ordner, L"*.*");
    for (const std::wstring& name : namen.value_or(std::vector<std::wstring>()))
        if (!prüfung.dateien().isLink(ordner + name))
            einenPrüfen(prüfung, gilt, ordner + name);
    return gilt;
}

} // namespace

void rechtePrüfen(Prüfung& prüfung) {
    Files& dateien = prüfung.dateien();
    if (!geteilt(dateien, prüfung.ordner())) {
        prüfung.melden({.pfad = prüfung.ordner(),
                        .was = L"Nur der Besitzer des Ordners kann darin schreiben.",
                        .abhilfe = L"Keine, wenn alle unter diesem Benutzer arbeiten; sonst chgrp -R GRUPPE, "
                                   L"chmod -R g+rwX und find … -type d -exec chmod g+s {} +",
                        .hinweis = true});
        return;
    }
    const std::wstring gruppen = gruppenordner(prüfung.global());
    const std::wstring gilt = mitDateienPrüfen(prüfung, prüfung.ordner(), gruppen);
    mitDateienPrüfen(prüfung, prüfung.ordner(), texteordner(prüfung.global()));
    for (const std::wstring& klasse : klassenAuflisten(dateien, prüfung.global()))
        if (!dateien.isLink(gruppen + klasse))
            mitDateienPrüfen(prüfung, gilt, gruppen + klasse + L"\\");
}

void restePrüfen(Prüfung& prüfung) {
    namespace fs = std::filesystem;
    Files& dateien = prüfung.dateien();
    std::error_code fehler;
    const fs::path wurzel = maschinenpfad(dateien, prüfung.ordner());
    fs::recursive_directory_iterator ort(wurzel, fs::directory_options::skip_permission_denied, fehler);
    for (; !fehler && ort != fs::recursive_directory_iterator(); ort.increment(fehler)) {
        const fs::directory_entry eintrag = *ort;
        if (!eintrag.path().filename().string().starts_with(draftBeginning) ||
            !fs::is_regular_file(eintrag.symlink_status(fehler)))
            continue;
        const std::wstring pfad = dateien.entered(fromUtf8(eintrag.path().string()));
        Befund befund{
            .pfad = pfad,
            .was = L"Das ist der Rest eines abgebrochenen Schreibens; die Datei, der es galt, ist heil."};
        if (alter(dateien, pfad).value_or(0) < jung) {
            befund.abhilfe = L"In einer Stunde noch einmal prüfen; vielleicht wird gerade geschrieben.";
            befund.hinweis = true;
        } else {
            befund.tat = L"den Rest entfernen";
            befund.beheben = [&dateien, pfad] { return dateien.removeFile(pfad); };
        }
        prüfung.melden(std::move(befund));
    }
}

} // namespace klopfmeise
