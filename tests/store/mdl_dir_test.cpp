#include "platform/machine/reg_file.h"
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
    const std::string pfad = (b.ordner.pfad() / "maschine.reg").string();
    RegFile registry{pfad};
    Services dienste{b.clock, b.random, b.sound, b.echteDateien, registry, b.shell};
    for (const char* wert : {R"("C:\\Daten")", R"(hex(1):43,3a,5c,44,61,74,65,6e,5c)", R"("C:\\Daten\\")",
                             "hex(1):43,3a,5c,44,\\\r\n  61,74,65,6e,5c,00"}) {
        dateiSchreiben(pfad, "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n\"Datenablage\"=" +
                                 std::string(wert) + "\r\n");
        EXPECT_EQ(DatenablageLesen(dienste), L"C:\\Daten\\") << wert;
    }
    dateiSchreiben(pfad, "");
    EXPECT_EQ(DatenablageLesen(dienste), L"\\");
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
