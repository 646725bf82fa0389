#include "store/klassen.h"

#include "platform/machine/services.h"
#include "platform/values/text.h"
#include "store/dateinamen.h"

#include <algorithm>

namespace klopfmeise {

namespace {

using Namen = std::vector<std::wstring>;

constexpr const wchar_t* einstellungsdatei = L"KME.ein";

std::wstring ordnerVon(const Globale& global, const std::wstring& name) {
    return gruppenordner(global) + name + L"\\";
}

} // namespace

std::wstring gruppenordner(const Globale& global) { return global.Datenpfad + L"Gruppen\\"; }

std::vector<std::wstring> klassenAuflisten(Files& dateien, const Globale& global) {
    return dateien.listFolders(gruppenordner(global)).value_or(Namen());
}

bool klasseZugänglich(Files& dateien, const Globale& global, const std::wstring& klasse) {
    return !klasse.empty() && !dateien.isLink(gruppenordner(global) + klasse);
}

Klassenanlage klasseAnlegen(Files& dateien, const Globale& global, const std::wstring& name) {
    if (!zulässigerName(name))
        return Klassenanlage::unzulässigerName;
    const auto gleich = [&](const std::wstring& andere) { return sameName(andere, name); };
    if (std::ranges::any_of(klassenAuflisten(dateien, global), gleich))
        return Klassenanlage::vorhanden;
    const std::wstring ordner = ordnerVon(global, name);
    if (!dateien.makeFolder(ordner))
        return Klassenanlage::misslungen;
    return dateien.copyFile(gruppenordner(global) + einstellungsdatei, ordner + einstellungsdatei)
               ? Klassenanlage::angelegt
               : Klassenanlage::ohneEinstellungen;
}

Klassenlöschung klasseLöschen(Files& dateien, const Globale& global, const std::wstring& name) {
    const std::wstring ordner = ordnerVon(global, name);
    if (führtHinaus(name))
        return {.misslungen = true};
    if (dateien.isLink(ordner))
        return {.misslungen = !dateien.removeFile(ordner)};
    const auto unterordner = dateien.listFolders(ordner);
    if (!unterordner)
        return {.misslungen = dateien.folderExists(ordner)};
    if (!unterordner->empty())
        return {.hatUnterordner = true};
    for (const std::wstring& datei : dateien.listFiles(ordner, L"*.*").value_or(Namen()))
        dateien.removeFile(ordner + datei);
    if (dateien.removeFolder(ordner) || !dateien.folderExists(ordner))
        return {};
    return {.misslungen = true, .übrig = dateien.listFiles(ordner, L"*.*").value_or(Namen())};
}

bool klasseUmbenennen(Files& dateien, const Globale& global, const std::wstring& alt,
                      const std::wstring& neu) {
    return !führtHinaus(alt) && zulässigerName(neu) &&
           dateien.rename(ordnerVon(global, alt), ordnerVon(global, neu));
}

} // namespace klopfmeise
