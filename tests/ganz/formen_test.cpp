#include "platform/controls/drawn.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>
#include <regex>
#include <set>

#include "platform/values/text.h"

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;

/// Controls that stand outside their container on purpose.
const std::set<std::wstring> frei{L"frmPfad.cmdPfad", L"Lern1.Dir1", L"Tastatur1.Label1(2)"};

bool zeichnungDa(const std::wstring& name) {
    if (name.starts_with(L"taste_"))
        return name.size() == 8;
    return fs::exists(fs::path(KLOPFMEISE_QUELLEN) / "assets" / (toUtf8(name) + ".svg"));
}

void textPasst(const Label& label, const std::wstring& name) {
    if (label.caption().empty() || label.autoSize() || label.font().points < 6)
        return;
    const TextSize eine = sizeOf(label.caption(), label.font());
    if (!label.wrap()) {
        EXPECT_LE(eine.width, label.width() + 15) << toUtf8(name);
        return;
    }
    const int zeilen = wrappedLines(label.caption(), label.font(), label.width());
    EXPECT_LE(zeilen * metricsOf(label.font()).lineHeight, label.height() + 15) << toUtf8(name);
}

void prüfen(const Container& container, int breite, int höhe, const std::wstring& form,
            std::set<std::wstring>& namen) {
    for (std::size_t i = 0; i < container.controlCount(); ++i) {
        Control& control = container.control(i);
        const std::wstring name = form + L"." + control.fullName();
        EXPECT_TRUE(namen.insert(control.fullName()).second) << "twice: " << toUtf8(name);
        // The upper rows of the shaft are never seen.
        const bool ungesehen = control.kind() == Kind::shape && !control.visible();
        if (!frei.contains(name) && !ungesehen) {
            const Rect innen = control.place().intersected({0, 0, breite, höhe});
            // A border of two pixels may stand over the edge.
            EXPECT_TRUE(control.width() - innen.width <= 30 && control.height() - innen.height <= 30)
                << toUtf8(name);
        }
        if (const auto* label = dynamic_cast<const Label*>(&control))
            textPasst(*label, name);
        if (const auto* bild = dynamic_cast<const Picture*>(&control); bild && !bild->picture().file) {
            EXPECT_TRUE(bild->picture().empty() || zeichnungDa(bild->picture().name)) << toUtf8(name);
            if (bild->click() || bild->mouseDown()) {
                EXPECT_FALSE(bild->spokenName().empty()) << "nothing to read out: " << toUtf8(name);
            }
        }
        if (control.windowed() && !control.asContainer() && control.visible()) {
            EXPECT_FALSE(control.spokenName().empty()) << "nothing to read out: " << toUtf8(name);
        }
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
        Form* form = name == L"frmStart" ? nullptr : b.runtime.load(name);
        if (name == L"frmStart")
            continue;
        ASSERT_TRUE(form) << toUtf8(name);
        EXPECT_EQ(form->name(), name);
        EXPECT_TRUE(name == L"frmAbbildung" || std::abs(2 * form->left() + form->width() - 12000) < 2)
            << toUtf8(name);
        if (!form->look().picture.empty()) {
            EXPECT_TRUE(zeichnungDa(form->look().picture)) << toUtf8(name);
        }
        std::set<std::wstring> namen;
        prüfen(*form, form->width(), form->height(), std::wstring(name), namen);
    }
}

TEST(Formen, EverySoundAndPictureThatTheCodeNamesIsThere) {
    const std::regex klang("L\"([^\"]+\\.wav)\"");
    const std::regex bild("L\"((?:knopf|uebung|hintergrund|einst)_[a-z0-9_]+)\"");
    int klänge = 0;
    int bilder = 0;
    for (const char* raum : {"screens", "front", "course", "games", "teacher"}) {
        for (const auto& eintrag : fs::directory_iterator(fs::path(KLOPFMEISE_QUELLEN) / raum)) {
            const std::string quelle = dateiinhalt(eintrag.path());
            for (std::sregex_iterator it(quelle.begin(), quelle.end(), klang), ende; it != ende;
                 ++it, ++klänge)
                EXPECT_TRUE(fs::exists(fs::path(KLOPFMEISE_WAV) / it->str(1)))
                    << it->str(1) << " in " << eintrag.path();
            for (std::sregex_iterator it(quelle.begin(), quelle.end(), bild), ende; it != ende; ++it) {
                ++bilder;
                EXPECT_TRUE(zeichnungDa(fromUtf8(it->str(1)))) << it->str(1) << " in " << eintrag.path();
            }
        }
    }
    EXPECT_GT(klänge, 5);
    EXPECT_GT(bilder, 20);
}

} // namespace
} // namespace klopfmeise
