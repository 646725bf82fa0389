#include "platform/machine/posix_files.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

using Namen = std::vector<std::wstring>;

class Dateien : public testing::Test {
protected:
    Dateien() {
        // The last one is "ä" in Windows-1252, as a share that knows no UTF-8 may hand it out.
        for (const char* name : {"Zoe._", "anna._", "Äpfel._", "Apfel._", "Straße._", "Strasse2._",
                                 "Mia._.bak", "._", ".Emil._", "Tim._X", "K\xe4the._"})
            dateiSchreiben(ordner.pfad() / name, "");
        std::filesystem::create_directory(ordner.pfad() / "Klasse._");
    }
    Namen liste(std::wstring_view muster) {
        return dateien.listFiles(logikpfad(ordner.pfad()) + L"\\", muster);
    }

    Wegwerfordner ordner;
    PosixFiles dateien;
};

TEST_F(Dateien, AreListedByPatternInAReadersOrder) {
    EXPECT_EQ(liste(L"*._"), (Namen{L"anna._", L"Apfel._", L"Äpfel._", L"K\xDCE4the._", L"Straße._",
                                    L"Strasse2._", L"Zoe._"}));
    EXPECT_EQ(liste(L"*.bak"), Namen{L"Mia._.bak"});
    EXPECT_EQ(liste(L"*.BAK"), Namen{L"Mia._.bak"});
    EXPECT_EQ(liste(L"?pfel._"), (Namen{L"Apfel._", L"Äpfel._"}));
    EXPECT_EQ(liste(L"*a*._*"), (Namen{L"anna._", L"Apfel._", L"Mia._.bak", L"Straße._", L"Strasse2._"}));
    EXPECT_EQ(liste(L"*.*").size(), 9U);
    EXPECT_EQ(liste(L"*"), liste(L"*.*"));
    EXPECT_EQ(dateien.listFolders(logikpfad(ordner.pfad())), Namen{L"Klasse._"});
}

TEST_F(Dateien, ANameThatIsNoUtf8IsOpenedUnderTheSameBytes) {
    const std::wstring pfad = logikpfad(ordner.pfad()) + L"\\" + liste(L"K*").at(0);
    ASSERT_TRUE(dateien.openRecords(pfad)->write(0, "x"));
    EXPECT_EQ(dateiinhalt(ordner.pfad() / "K\xe4the._"), "x");
}

} // namespace
} // namespace klopfmeise
