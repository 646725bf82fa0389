#pragma once

#include "platform/controls/control_array.h"
#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/ranges.h"
#include "screens/umgebung.h"

#include <functional>

namespace klopfmeise {

struct KlassenlisteLook {
    Rect ersteZeile;
    /// Twips from a line to the next.
    int abstand = 0;
    Font schrift = {};
    Rect bildlauf;
    int großerSchritt = 1;
    /// A press on a line, with its class.
    std::function<void(std::wstring klasse, MouseButton knopf)> gedrückt;
};

/// Nine lines of the classes' list with a scroll bar, whose value is the class in the top line. The mouse
/// lights up the line under it.
class Klassenliste {
public:
    Klassenliste(Container& form, Container& rahmen, const Umgebung& umgebung, KlassenlisteLook look);

    /// Reads the classes from the disk and shows them.
    void lesen();
    void keineHervorheben();
    bool leer() const { return Dir1.itemCount() == 0; }

private:
    void füllen();
    void LblGruppe_MouseMove(int index);

    Umgebung umgebung_;
    FolderList Dir1;
    ControlArray<Label> LblGruppe;
    ScrollBar ScrGruppe;
    Label lblUnlesbar;
};

} // namespace klopfmeise
