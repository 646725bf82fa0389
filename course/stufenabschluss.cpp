#include "course/stufenabschluss.h"

namespace klopfmeise {

void stufeBestanden(Files& dateien, const std::wstring& pfad, Kurskonto& konto, int Stufenzahl,
                    const std::function<void()>& zwischen) {
    const int bisher = konto.Lektionsnummer;
    stufeWeiter(konto, Stufenzahl);
    Kontodatei datei(dateien, pfad);
    const bool geschrieben = datei.schreiben(Kontosatz::Lektionsnummer, ganzzahl(konto.Lektionsnummer));
    zwischen();
    if (geschrieben && !datei.schreiben(Kontosatz::Stufennummer, ganzzahl(konto.Stufennummer)))
        datei.schreiben(Kontosatz::Lektionsnummer, ganzzahl(bisher));
}

} // namespace klopfmeise
