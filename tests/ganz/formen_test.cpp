#include "tests/probe.h"

#include <set>

namespace klopfmeise {
namespace {

/// Controls that stand outside their container on purpose.
const std::set<std::wstring> frei{L"frmPfad.cmdPfad", L"Lern1.Dir1", L"Tastatur1.Label1(2)",
                                  L"einst0.Picture1", L"einst0.LblKlasse"};

bool zeichnungDa(const std::wstring& name) {
    if (name.starts_with(L"taste_"))
        return name.size() == 8;
    return fs::exists(fs::path(KLOPFMEISE_QUELLEN) / "assets" / (toUtf8(name) + ".svg"));
}

bool textPasst(const CheckControl& check) {
    const int zeilen = wrappedLines(check.caption(), check.font(), check.width() - CheckControl::signRoom);
    return zeilen * metricsOf(check.font()).lineHeight <= check.height();
}

bool textPasst(const Label& label) {
    if (label.caption().empty() || label.autoSize() || label.font().points < 6)
        return true;
    if (!label.wrap())
        return sizeOf(label.caption(), label.font()).width <= label.width() + 15;
    const int zeilen = wrappedLines(label.caption(), label.font(), label.width());
    return zeilen * metricsOf(label.font()).lineHeight <= label.height() + 15;
}

void prüfen(const Container& container, int breite, int höhe, const std::wstring& form,
            std::set<std::wstring>& namen) {
    for (std::size_t i = 0; i < container.controlCount(); ++i) {
        Control& control = container.control(i);
        const std::wstring name = form + L"." + control.fullName();
        SCOPED_TRACE(toUtf8(name));
        EXPECT_TRUE(namen.insert(name).second) << "twice";
        // A border of two pixels may stand over the edge.
        const Rect innen = control.place().intersected({0, 0, breite, höhe});
        // The upper rows of the shaft are never seen.
        const bool ungesehen = control.kind() == Kind::shape && !control.visible();
        EXPECT_TRUE(ungesehen || frei.contains(name) ||
                    (control.width() - innen.width <= 30 && control.height() - innen.height <= 30));
        const auto* label = dynamic_cast<const Label*>(&control);
        EXPECT_TRUE(!label || textPasst(*label));
        const auto* wahl = dynamic_cast<const CheckControl*>(&control);
        EXPECT_TRUE(!wahl || textPasst(*wahl));
        bool vorzulesen = control.windowed() && !control.asContainer() && control.visible();
        if (const auto* bild = dynamic_cast<const Picture*>(&control); bild && !bild->picture().file) {
            EXPECT_TRUE(bild->picture().empty() || zeichnungDa(bild->picture().name));
            vorzulesen = vorzulesen || bild->click() || bild->mouseDown();
        }
        EXPECT_FALSE(vorzulesen && control.spokenName().empty());
        if (const Container* innerer = control.asContainer())
            prüfen(*innerer, control.width(), control.height(), form, namen);
    }
}

TEST(Formen, EachLoadsAndItsControlsAreNamedOnceInsideTheirContainerAndTheirTextsFit) {
    Bühne b;
    b.lektion(1, "Einzeiler", {"fff jjj"});
    b.öffnen(L"Lern1");
    for (const std::wstring_view name : b.runtime.names()) {
        // The splash would start the whole program.
        if (name == L"frmStart")
            continue;
        SCOPED_TRACE(toUtf8(name));
        Form* form = b.runtime.load(name);
        ASSERT_TRUE(form);
        EXPECT_TRUE(form->look().picture.empty() || zeichnungDa(form->look().picture));
        std::set<std::wstring> namen;
        prüfen(*form, form->width(), form->height(), std::wstring(name), namen);
    }
}

} // namespace
} // namespace klopfmeise
