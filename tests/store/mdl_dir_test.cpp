#include "store/mdl_dir.h"
#include "tests/buehne.h"
#include "tests/platform/machine/troubles.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

TEST(mdlDir, FindsMarkersWithoutRegardToCaseAndRefusesARoot) {
    Wegwerfordner ordner;
    PosixFiles dateien;
    for (const char* datei : {"gruppen/KME.EIN", "Data/Tastatur/lektion1.bmp", "Data/Texte/Text_001.txt"})
        dateiSchreiben(ordner.pfad() / datei, "x");
    const std::wstring pfad = logikpfad(ordner.pfad()) + L"\\";
    EXPECT_TRUE(zulässigeDatenablage(dateien, pfad));
    std::filesystem::remove(ordner.pfad() / "gruppen" / "KME.EIN");
    EXPECT_FALSE(zulässigeDatenablage(dateien, pfad));
    EXPECT_FALSE(zulässigeDatenablage(dateien, L"\\"));
}

TEST(mdlDir, BothFormsOfAStoredPathGiveTheSameFolder) {
    Bühne b;
    for (const std::string wert : {"C:\\Daten", "C:\\Daten\\"}) {
        // As the registry gives it, with its terminator.
        b.registry.values["Datenablage"] = {Registry::Type::string, wert + '\0'};
        EXPECT_EQ(DatenablageLesen(b.umgebung.dienste()), L"C:\\Daten\\");
    }
    b.registry.values.clear();
    EXPECT_EQ(DatenablageLesen(b.umgebung.dienste()), L"\\");
}

TEST(mdlDir, TheWriteTestFindsWhatAShareSaysOnlyAtTheEnd) {
    Wegwerfordner ordner;
    PosixFiles dateien;
    const std::wstring pfad = logikpfad(ordner.pfad()) + L"\\";
    EXPECT_TRUE(schreibprobe(dateien, pfad));
    EXPECT_EQ(dateiinhalt(ordner.pfad() / "lzf75.tst"), std::string("\4\0Test", 6));
    for (const auto call : {FailingCall::Call::flush, FailingCall::Call::close}) {
        const FailingCall voll(call, EDQUOT, ordner.pfad());
        EXPECT_FALSE(schreibprobe(dateien, pfad));
    }
}

} // namespace
} // namespace klopfmeise
