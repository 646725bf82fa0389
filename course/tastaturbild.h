#pragma once

#include "platform/controls/control_array.h"
#include "platform/controls/drawn.h"
#include "screens/tastenplan.h"
#include "screens/umgebung.h"

#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace klopfmeise {

/// The picture of the keyboard and the lit fingers that the three typing screens carry: where the next key
/// and finger are pointed at and pressed keys flash. It judges nothing.
class Tastaturbild {
public:
    /// The hands themselves belong to the form's background. `daumenLinks` is where the right thumb begins.
    Tastaturbild(Form& form, const Umgebung& umgebung, int daumenLinks = 6480);

    /// Hides all lit fingers.
    void fingerAus();
    /// Takes key, character and finger away but leaves the fingers as they are.
    void leeren();
    /// Shows `zeichen` as the next one to type and lights the key and the finger on which it lies, if the
    /// plan has it.
    void leuchten(const std::wstring& zeichen, std::wstring_view schrift);
    /// Points at one key with the right little finger, whatever the character says: Enter and backspace.
    void aufTasteZeigen(int taste);
    /// Shows the sign of the backspace key in place of a character.
    void rückzeichen();
    /// Puts the large character on the first lit finger; where none is lit it stays.
    void zeichenAufFinger();

    /// Flashes the key of a character code; with `klick` the key's click is heard. Nothing for a code without
    /// a key.
    void TastenLeuchten(const KeyPress& taste, bool klick);
    /// Flashes what a key-down of a key without a character shows: Tab, Caps Lock, Shift, Control, Alt.
    void TastenLeuchten2(const KeyDown& taste);

    /// What a screen reader is told to type next.
    std::wstring ziel() const;

private:
    void umrahmen(const Taste& taste);
    void Tastenblitz(std::span<const int> nummern);

    Umgebung umgebung_;

    Shape shpLeucht;
    ControlArray<Picture> picTaste;
    ControlArray<Picture> imgFinger;
    Label lblT;
    Label lblAKtuell;
};

/// Lets one key-down through until the next key-up, so that a held key flashes once.
struct Tastensperre {
    bool TasteFrei = true;

    /// True if this key-down may pass.
    bool durchlassen() { return std::exchange(TasteFrei, false); }
    void loslassen() { TasteFrei = true; }
};

} // namespace klopfmeise
