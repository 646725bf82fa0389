#include "platform/machine/posix_files.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

using Names = std::vector<std::wstring>;

class PosixFilesTest : public testing::Test {
protected:
    PosixFilesTest() {
        // The last one is "ä" in Windows-1252, as a share that knows no UTF-8 may hand it out.
        for (const char* name : {"Zoe._", "anna._", "Äpfel._", "Apfel._", "Straße._", "Strasse2._",
                                 "Mia._.bak", "._", ".Emil._", "Tim._X", "K\xe4the._"})
            dateiSchreiben(folder_.pfad() / name, "");
        std::filesystem::create_directory(folder_.pfad() / "Klasse._");
    }
    Names list(std::wstring_view pattern) {
        return files_.listFiles(logikpfad(folder_.pfad()) + L"\\", pattern);
    }

    Wegwerfordner folder_;
    PosixFiles files_;
};

TEST_F(PosixFilesTest, FilesAreListedByPatternInAReadersOrder) {
    EXPECT_EQ(list(L"*._"), (Names{L"anna._", L"Apfel._", L"Äpfel._", L"K\xDCE4the._", L"Straße._",
                                   L"Strasse2._", L"Zoe._"}));
    EXPECT_EQ(list(L"*.bak"), Names{L"Mia._.bak"});
    EXPECT_EQ(list(L"*.BAK"), Names{L"Mia._.bak"});
    EXPECT_EQ(list(L"?pfel._"), (Names{L"Apfel._", L"Äpfel._"}));
    EXPECT_EQ(list(L"*a*._*"), (Names{L"anna._", L"Apfel._", L"Mia._.bak", L"Straße._", L"Strasse2._"}));
    EXPECT_EQ(list(L"*.*").size(), 9U);
    EXPECT_EQ(list(L"*"), list(L"*.*"));
    EXPECT_EQ(files_.listFolders(logikpfad(folder_.pfad())), Names{L"Klasse._"});
}

TEST_F(PosixFilesTest, ANameThatIsNoUtf8IsOpenedUnderTheSameBytes) {
    const std::wstring path = logikpfad(folder_.pfad()) + L"\\" + list(L"K*").at(0);
    ASSERT_TRUE(files_.openRecords(path)->write(0, "x"));
    EXPECT_EQ(dateiinhalt(folder_.pfad() / "K\xe4the._"), "x");
}

} // namespace
} // namespace klopfmeise
