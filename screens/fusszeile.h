#pragma once

#include "platform/controls/drawn.h"
#include "screens/umgebung.h"

#include <optional>

namespace klopfmeise {

/// The labels at the foot of every full-screen form that name child, class and exercise.
struct Fußzeile {
    /// `Übung` is the exercise's title, on the ground `grund`.
    explicit Fußzeile(Container& form, std::wstring Übung = L"", Color grund = colors::white);

    /// Names the chosen child and class.
    void kindZeigen(const Globale& global);

    Label Label3_1;
    Label Label3_0;
    Label Label3_13;
    Label LblName;
    Label LblKlasse;
    Label LblÜb;
};

/// What differs from exercise to exercise at its foot.
struct ÜbungsfußLook {
    /// Number of the exercise in the menu.
    int übung = 0;
    Color grund = colors::white;
    /// The third button, left of the two others, mostly a `bildknopf`; none without a picture.
    PictureLook neu = {};
    int hilfeIndex = 0;
    /// What else is done when the exercise is left.
    Handler gegangen = {};
};

/// The foot of an exercise: the labels, and the buttons for help, for leaving and one of its own.
class Übungsfuß {
public:
    Übungsfuß(Form& form, const Umgebung& umgebung, ÜbungsfußLook look);

    /// Names the chosen child and class.
    void kindZeigen() { angaben_.kindZeigen(umgebung_.global); }

private:
    void imgHilfe_Click();
    void imgEnde_Click();

    Form& form_;
    Umgebung umgebung_;
    Handler gegangen_;

    Fußzeile angaben_;
    std::optional<Picture> imgNeu;
    Picture imgHilfe;
    Picture imgEnde;
};

} // namespace klopfmeise
