// Makes the data folder as it is installed: datenordner KURS TEXTE ZIEL [--probeklasse NAME KIND...]

#include "platform/machine/posix_files.h"
#include "platform/values/text.h"
#include "platform/values/windows1252.h"
#include "store/kontodatei.h"
#include "store/texte.h"
#include "tools/kursdatei.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <span>
#include <stdexcept>

namespace fs = std::filesystem;
using namespace klopfmeise;

namespace {

constexpr int lektionen = 30;
constexpr int einstellungen = 100;
constexpr int satzTextname = 106;

std::wstring logikpfad(const fs::path& pfad) { return PosixFiles().entered(fromUtf8(pfad.string())); }

/// The UTF-8 of an author's file. A character that the code page of the made files cannot hold is an error
/// that names file and line.
std::string quelltext(const fs::path& quelle) {
    std::ifstream strom(quelle, std::ios::binary);
    std::string inhalt{std::istreambuf_iterator<char>(strom), {}};
    if (!strom)
        throw std::runtime_error(quelle.string() + ": nicht lesbar");
    int zeile = 1;
    for (const wchar_t c : fromUtf8(inhalt)) {
        if (toWindows1252(c) < 0)
            throw std::runtime_error(quelle.string() + ":" + std::to_string(zeile) + ": das Zeichen '" +
                                     toUtf8(std::wstring(1, c)) +
                                     "' gibt es nicht in der Zeichentabelle der Dateien");
        zeile += c == L'\n';
    }
    return inhalt;
}

/// Written only if it differs, so that a folder in use is not touched for nothing.
void schreiben(const fs::path& pfad, const std::string& inhalt) {
    std::ifstream alt(pfad, std::ios::binary);
    if (alt && std::string(std::istreambuf_iterator<char>(alt), {}) == inhalt)
        return;
    fs::create_directories(pfad.parent_path());
    std::ofstream neu(pfad, std::ios::binary);
    neu << inhalt;
    if (!neu.flush())
        throw std::runtime_error(pfad.string() + ": lässt sich nicht schreiben");
}

std::string lektionsdatei(const fs::path& quelle) {
    const Kurslektion lektion = zerlegeKurslektion(quelltext(quelle), quelle.string());
    std::wstring text =
        std::to_wstring(lektion.stufen.size()) + L"\r\n" + lektion.art + L"\r\n" + lektion.titel + L"\r\n";
    int nummer = 0;
    for (const auto& stufe : lektion.stufen)
        text += L"Unterstufe" + std::to_wstring(++nummer) + L"\r\n" + stufe.titel + L"\r\n" + stufe.text +
                L"\r\n" + stufe.hinweis + L"\r\n";
    return toWindows1252(text);
}

/// A text for "Text tippen": rich text under a `.txt` ending, in the one look that the teacher's editor gives
/// it.
std::string textdatei(const fs::path& quelle) {
    std::wstring text = fromUtf8(quelltext(quelle));
    while (text.ends_with(L'\n'))
        text.pop_back();
    auto [dokument, ausgang] = documentFromPlainText(text);
    if (ausgang != RtfOutcome::whole)
        throw std::runtime_error(quelle.string() + ": länger als " + std::to_string(rtfMaxCharacters) +
                                 " Zeichen");
    for (RtfParagraph& absatz : dokument.paragraphs)
        for (RtfRun& lauf : absatz.runs)
            lauf.format = Textformat;
    return writeRtf(dokument, Textformat);
}

void vorlage(const fs::path& pfad) {
    if (fs::exists(pfad))
        return;
    fs::create_directories(pfad.parent_path());
    PosixFiles dateien;
    Kontodatei datei(dateien, logikpfad(pfad));
    for (int satz = 1; satz <= einstellungen; ++satz)
        datei.schreiben(satz, std::int16_t{1});
    datei.schreibenText(satzTextname, L"Text_001.txt");
    if (!datei.gut())
        throw std::runtime_error(pfad.string() + ": lässt sich nicht schreiben");
}

/// A class with fresh accounts; accounts that exist keep what they hold.
void probeklasse(const fs::path& gruppen, std::span<char*> namen) {
    const fs::path klasse = gruppen / namen[0];
    vorlage(klasse / "KME.ein");
    PosixFiles dateien;
    for (const char* kind : namen.subspan(1)) {
        const fs::path konto = klasse / (std::string(kind) + "._");
        if (!fs::exists(konto) && !Kontodatei(dateien, logikpfad(konto)).WerteSchreiben())
            throw std::runtime_error(konto.string() + ": lässt sich nicht schreiben");
    }
}

void machen(const fs::path& kurs, const fs::path& texte, const fs::path& ziel) {
    for (int nummer = 1; nummer <= lektionen; ++nummer) {
        const std::string name = (nummer < 10 ? "Lektion0" : "Lektion") + std::to_string(nummer) + ".txt";
        schreiben(ziel / "Data" / "Tastatur" / ("Lektion" + std::to_string(nummer) + ".txt"),
                  lektionsdatei(kurs / name));
    }
    for (const auto& eintrag : fs::directory_iterator(texte))
        if (eintrag.path().extension() == ".txt")
            schreiben(ziel / "Data" / "Texte" / eintrag.path().filename(), textdatei(eintrag.path()));
    vorlage(ziel / "Gruppen" / "kme.ein");
}

} // namespace

int main(int argc, char* argv[]) {
    const std::span<char*> worte(argv, static_cast<std::size_t>(argc));
    const bool probe = worte.size() > 5 && std::string_view(worte[4]) == "--probeklasse";
    if (worte.size() != 4 && !probe) {
        std::cerr << "Aufruf: datenordner KURS TEXTE ZIEL [--probeklasse NAME KIND...]\n";
        return 2;
    }
    try {
        machen(worte[1], worte[2], worte[3]);
        if (probe)
            probeklasse(fs::path(worte[3]) / "Gruppen", worte.subspan(5));
    } catch (const std::exception& fehler) {
        std::cerr << fehler.what() << '\n';
        return 1;
    }
    return 0;
}
