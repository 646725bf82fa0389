#pragma once

#include "platform/machine/services.h"
#include "store/wert.h"

#include <memory>
#include <span>
#include <string>

namespace klopfmeise {

/// Records of a Kontodatei by name; the numbers are those of the slots.
enum class Kontosatz : int {
    Kontomarke = 11,
    Vorlagemodus = 29,
    Fehlerstopp = 30,
    Zeitmodus = 31,
    Lektionsnummer = 32,
    Stufennummer = 33,
    Durchgangszahl = 34,
    Tempowert = 35,
    Genauigkeit = 36,
    HighWolken = 37,
    HighSteine = 38,
    HighBand = 39,
    TexteGesamt = 40,
    AnschlaegeSchnitt = 41,
};

/// A file of slots of 128 bytes, one tagged value at the start of each; record n begins at (n - 1) * 128.
/// Open only within one handler: its destructor closes the file, `schließen` where the answer counts. A file
/// that cannot be opened or read gives Empty and takes nothing, and `gut` tells it from an empty one, so that
/// no figure is made from a value that could not be read.
class Kontodatei {
public:
    static constexpr std::size_t Satzlänge = 128;

    /// Opens for random access and creates a missing file.
    Kontodatei(Files& dateien, const std::wstring& pfad);

    /// The value of a record; Empty beyond the end of the file.
    Wert lesen(int satz);
    Wert lesen(Kontosatz satz) { return lesen(static_cast<int>(satz)); }
    /// Replaces one record in place by one short write; the rest of the file is not touched.
    bool schreiben(int satz, const Wert& wert);
    bool schreiben(Kontosatz satz, const Wert& wert) { return schreiben(static_cast<int>(satz), wert); }

    /// Replaces successive records, from `erster` on, in one write: all of them, or none. What a slot holds
    /// behind its value is cleared, but for that of the last one.
    bool schreiben(Kontosatz erster, std::span<const Wert> werte);

    /// A record that holds a plain string without a tag: 16-bit length, then the text.
    std::wstring lesenText(int satz);
    bool schreibenText(int satz, std::wstring_view text);

    /// The creation image: records 1 to 100 the Integer 0, then Durchgangszahl 3; one write.
    bool WerteSchreiben();

    /// Closes the file; nothing can be read or written any more. False if anything failed since it was
    /// opened, or if a full share says only now that a value did not arrive.
    bool schließen();

    /// False once the file could not be opened, read, written or closed.
    bool gut() const { return gut_; }

private:
    std::string lesenBytes(int satz);
    bool schreibenBytes(int satz, const std::string& bytes);

    std::unique_ptr<RecordFile> datei_;
    bool gut_;
};

} // namespace klopfmeise
