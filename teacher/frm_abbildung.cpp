#include "teacher/frm_abbildung.h"

#include "screens/formnamen.h"
#include "screens/lektionsarchiv.h"
#include "store/lektionsdatei.h"
#include "store/pfade.h"

namespace klopfmeise {

frmAbbildung::frmAbbildung(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::frmAbbildung,
           {.kind = FormKind::window,
            .caption = L"Tastatur",
            .width = 10770,
            .height = 6225,
            .back = colors::white})
    , umgebung_(umgebung)
    , lblArchiv(
          frmArchiv, L"lblArchiv", 1, Lektionenzahl,
          [](int i) {
              return Rect{630 + 315 * (i - 1), 525, 255, 240};
          },
          [this](int i) {
              return LabelLook{.caption = std::to_wstring(i),
                               .fore = archivfarben::nichtErreicht,
                               .back = archivfarben::grund,
                               .align = Align::center,
                               .wrap = false,
                               .click = [this, i] { lblArchiv_Click(i); }};
          }) {}

void frmAbbildung::lblArchiv_Click(int index) {
    if (lblArchiv(index).fore() == archivfarben::nichtErreicht)
        return;
    umgebung_.klang(L"knopf.wav");
    for (int i = 1; i <= Lektionenzahl; ++i)
        lblArchiv(i).setBack(archivfarben::grund);
    lblArchiv(index).setBack(archivfarben::gezeigt);
    imgAbbildung.clear();
    repaint();
    // A short blank, so that the change of picture is seen.
    runtime().wait(100);
    const std::wstring nummer = lblArchiv(index).caption();
    setCaption(L"Lektion " + nummer);
    imgAbbildung.loadFile(lektionsbild(umgebung_.global, nummer));
}

} // namespace klopfmeise
