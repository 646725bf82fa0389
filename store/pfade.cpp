#include "store/pfade.h"

namespace klopfmeise {

namespace {
constexpr std::wstring_view kursordner = L"Data\\Tastatur\\Lektion";
}

std::wstring klassenordner(const Globale& global) {
    return global.Datenpfad + L"Gruppen\\" + global.AktuelleKlasse;
}

std::wstring kontopfad(const Globale& global) { return kontopfad(global, kontoname(global)); }

std::wstring kontopfad(const Globale& global, const std::wstring& name) {
    return klassenordner(global) + name + std::wstring(Kontoendung);
}

std::wstring kontoname(const Globale& global) {
    const std::wstring& konto = global.AktuellesKonto;
    return konto.substr(0, konto.size() - (konto.ends_with(Kontoendung) ? Kontoendung.size() : 0));
}

std::wstring lektionspfad(const Globale& global, int lektion) {
    return global.Datenpfad + std::wstring(kursordner) + std::to_wstring(lektion) + L".txt";
}

std::wstring lektionsbild(const Globale& global, std::wstring_view lektion) {
    return global.Datenpfad + std::wstring(kursordner) + std::wstring(lektion) + L".bmp";
}

} // namespace klopfmeise
