#include "store/texte.h"

#include "platform/machine/services.h"
#include "platform/values/windows1252.h"
#include "store/dateinamen.h"
#include "store/einstellungsdatei.h"
#include "store/klassen.h"
#include "store/kontodatei.h"

namespace klopfmeise {

namespace {

bool vorhanden(Files& dateien, const std::wstring& pfad) {
    return dateien.isLink(pfad) || !dateien.search(pfad).empty();
}

} // namespace

std::wstring texteordner(const Globale& global) { return global.Datenpfad + L"Data\\Texte\\"; }

std::wstring textpfad(const Globale& global, const std::wstring& name) { return texteordner(global) + name; }

std::vector<std::wstring> texteAuflisten(Files& dateien, const Globale& global) {
    return dateien.listFiles(texteordner(global), Textmuster).value_or(std::vector<std::wstring>());
}

bool textZugänglich(Files& dateien, const Globale& global, const std::wstring& name) {
    return !dateien.isLink(textpfad(global, name));
}

std::wstring klassentext(const Globale& global, const std::wstring& name) {
    return führtHinaus(name) ? std::wstring() : textpfad(global, name);
}

std::optional<std::wstring> textAnlegen(Files& dateien, const Globale& global, const std::wstring& name) {
    const std::wstring datei = name + L".txt";
    const std::wstring pfad = textpfad(global, datei);
    if (!zulässigerName(name) || !textZugänglich(dateien, global, datei) ||
        !dateien.writeAll(pfad, writeRtf({}, Textformat)))
        return std::nullopt;
    // A text that was there keeps the case of its name.
    const std::wstring gefunden = dateien.search(pfad);
    return gefunden.empty() ? datei : gefunden;
}

Textlöschung textLöschen(Files& dateien, const Globale& global, const std::wstring& name) {
    const std::size_t zahl = texteAuflisten(dateien, global).size();
    if (zahl == 1)
        return Textlöschung::letzter;
    const std::wstring pfad = textpfad(global, name);
    if (name.empty() || !vorhanden(dateien, pfad))
        return Textlöschung::gelöscht;
    // It is there, so the folder could not be listed, and it may be the last one.
    if (zahl == 0)
        return Textlöschung::geblieben;
    dateien.removeFile(pfad.substr(0, pfad.size() - 1) + L"1");
    const bool weg = dateien.removeFile(pfad) || !vorhanden(dateien, pfad);
    return weg ? Textlöschung::gelöscht : Textlöschung::geblieben;
}

bool textWählen(Files& dateien, const Globale& global, const std::wstring& name) {
    constexpr std::size_t längster = Kontodatei::Satzlänge - 2;
    // Without a class the settings would be those from which new classes are made.
    return klasseZugänglich(dateien, global, global.AktuelleKlasse) && name.size() <= längster &&
           fromWindows1252(toWindows1252(name)) == name && textnameSchreiben(dateien, global, name);
}

} // namespace klopfmeise
