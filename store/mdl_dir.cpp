#include "store/mdl_dir.h"

#include "platform/values/text.h"
#include "store/mdl_registry.h"

#include <string_view>

namespace klopfmeise {

std::wstring DateiName(const std::wstring& pfad) {
    // npos + 1 is 0: a path without a backslash is its own name.
    return pfad.substr(pfad.rfind(L'\\') + 1);
}

bool DateiVorhanden(Files& dateien, const std::wstring& pfad) {
    const std::wstring gefunden = dateien.search(pfad);
    return !gefunden.empty() && upper(gefunden) == upper(DateiName(pfad));
}

std::wstring mitBackslash(std::wstring pfad) {
    if (!pfad.ends_with(L'\\'))
        pfad += L'\\';
    return pfad;
}

std::wstring DatenablageLesen(Services& dienste) {
    std::wstring wert = RegistryText(dienste.registry, L"Datenablage");
    if (!wert.empty())
        wert.pop_back();
    return mitBackslash(dienste.files.entered(wert));
}

std::vector<std::wstring> fehlendeMarken(Files& dateien, const std::wstring& ordner) {
    std::vector<std::wstring> fehlend{L"Gruppen\\kme.ein", L"Data\\Tastatur\\Lektion1.bmp",
                                      L"Data\\Texte\\Text_001.txt"};
    std::erase_if(fehlend, [&](const auto& marke) { return DateiVorhanden(dateien, ordner + marke); });
    return fehlend;
}

bool zulässigeDatenablage(Files& dateien, const std::wstring& ordner) {
    constexpr std::size_t kürzester = 4;
    return fehlendeMarken(dateien, ordner).empty() && ordner.size() >= kürzester &&
           dateien.folderExists(ordner);
}

bool schreibprobe(Files& dateien, const std::wstring& ordner) {
    // Record 1 with a plain string. The whole file is put in place anew: a full disk would still take the six
    // bytes over those of an earlier start.
    constexpr std::string_view satz("\x04\0Test", 6);
    return dateien.writeAll(ordner + L"lzf75.tst", satz);
}

} // namespace klopfmeise
