#pragma once

#include "course/tastaturbild.h"
#include "platform/controls/control_array.h"
#include "platform/controls/drawn.h"
#include "platform/controls/events.h"
#include "platform/controls/panels.h"
#include "platform/controls/rich_text_box.h"

#include <functional>
#include <string>

namespace klopfmeise {

/// The window of running text that Tastatur2 and Textübung0 share: one cell a character, laid out in lines,
/// with a cursor, the lock after a wrong key, correction by backspace and scrolling by lines.
class Textfenster {
public:
    /// Twips from one line to the next, less the height of a cell.
    static constexpr int Zeilenabstand = 10;
    /// A cell's colour while the cursor stands on it; it blinks between the two.
    static constexpr Color Cursorfarbe = colors::midGrey;
    static constexpr Color Blinkfarbe = colors::panel;

    /// `links` is the left edge of Picture1; the black frame stands 30 twips beyond it. A key-down that the
    /// gate lets through flashes; a character goes to `zeichen`.
    Textfenster(Form& form, Tastaturbild& bild, Tastensperre& sperre, int links,
                std::function<void(const KeyPress&)> zeichen);

    /// Lays out the text of Text1 and puts the cursor on its first cell. Lines break behind the last blank
    /// before the margin; a word wider than a line is broken at the margin.
    void Übernehmen();
    /// Shows the cursor and points at the next key and finger, or at the backspace key while the lock is on.
    void FingerLeuchten();

    /// The current cell, 1 to Zellenzahl + 1.
    int Pos = 1;
    /// Characters of the text, line ends included.
    int Zellenzahl = 0;
    /// 1 after a wrong key, until it is taken back.
    int Fehlersperre = 0;

    Label& zelle() const { return lbl(Pos); }
    bool amEnde() const { return Pos == Zellenzahl + 1; }
    /// The cursor stands on the mark of a line end, the cell of the Enter key.
    bool amZeilenende() const { return zelle().font().name == wingdings; }
    /// The current cell holds exactly this character.
    bool zeichenStimmt(const KeyPress& taste) const {
        return zelle().caption() == std::wstring(1, taste.character);
    }

    /// Takes the cursor back by one cell, over a line feed too, and the lock off.
    void rücktaste();
    /// Colours the current cell right and steps on, over a line feed too.
    void richtig();
    /// Colours the current cell wrong, puts the lock on and steps on; points at the backspace key.
    void falsch();
    /// True if each cell of the text has been typed right.
    bool alleRichtig() const;
    bool keineFalsch() const;

    /// Moves the text by one line where the cursor has left the window.
    void scrollen();
    void blinken();

private:
    void umbrechen(int i);
    void hinter(int i);
    void zeilenanfang(int i, int links);
    void weiter();

    Tastaturbild& bild_;

    Label lblFärbung;

public:
    PictureBox Picture1;
    /// Holds the text being laid out.
    RichTextBox Text1;

private:
    /// Element 0 is the pattern of a cell.
    ControlArray<Label> lbl;
    /// Its left edge is the right margin of the text, its top the lower margin.
    Shape shpBegrenzung;
};

} // namespace klopfmeise
