#include "platform/machine/posix_files.h"
#include "tests/buehne.h"
#include "tests/platform/machine/troubles.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <iterator>

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

/// An empty folder, written in by a machine in trouble.
class TroubledFilesTest : public testing::Test {
protected:
    std::filesystem::path place(const char* name) const { return folder_.pfad() / name; }
    std::wstring path(const char* name) const { return logikpfad(place(name)); }
    auto entries() const { return std::distance(std::filesystem::directory_iterator(folder_.pfad()), {}); }

    Wegwerfordner folder_;
    PosixFiles files_;
};

TEST_F(TroubledFilesTest, ARecordThatDoesNotFitLeavesTheOneThatWasThere) {
    constexpr rlim_t room = 200;
    // Inside the file, across its end, and wholly behind it.
    for (const std::size_t length : {256U, 150U, 200U, 128U}) {
        const std::string before(length, 'a');
        dateiSchreiben(place("Mia._"), before);
        const FileSizeLimit full(room);
        const auto records = files_.openRecords(path("Mia._"));
        EXPECT_FALSE(records->write(128, std::string(128, 'b'))) << length;
        EXPECT_TRUE(records->write(0, "c"));
        EXPECT_TRUE(records->close());
        EXPECT_EQ(dateiinhalt(place("Mia._")), "c" + before.substr(1)) << length;
    }
}

TEST_F(TroubledFilesTest, WhatAShareSaysOnlyAtClosingIsTold) {
    const auto records = files_.openRecords(path("Mia._"));
    EXPECT_TRUE(records->write(0, "x"));
    const FailingCall full(FailingCall::Call::close, EDQUOT, folder_.pfad());
    EXPECT_FALSE(records->close());
}

TEST_F(TroubledFilesTest, AFileIsReplacedWholeOrNotAtAll) {
    using Call = FailingCall::Call;
    dateiSchreiben(place("Text.txt"), "before");
    const std::string longer(5000, 'n');
    const auto unchanged = [&](const char* what) {
        EXPECT_FALSE(files_.writeAll(path("text.TXT"), longer)) << what;
        EXPECT_FALSE(files_.writeAll(path("New.txt"), longer)) << what;
        EXPECT_EQ(dateiinhalt(place("Text.txt")), "before") << what;
        EXPECT_EQ(entries(), 1) << what;
    };
    {
        const FileSizeLimit full(4096);
        unchanged("full");
    }
    {
        const FailingCall late(Call::flush, EIO, folder_.pfad());
        unchanged("flush");
    }
    {
        const FailingCall late(Call::close, EDQUOT, folder_.pfad());
        unchanged("close");
    }
    {
        const FailingCall full(Call::rename, ENOSPC, folder_.pfad());
        unchanged("rename without room");
    }
    EXPECT_TRUE(files_.writeAll(path("text.TXT"), longer));
    EXPECT_EQ(dateiinhalt(place("Text.txt")), longer);
    EXPECT_EQ(entries(), 1);
}

TEST_F(TroubledFilesTest, WhereAShareRefusesToReplaceTheOldFileIsWrittenOver) {
    dateiSchreiben(place("Text.txt"), "what stood there before");
    const FailingCall refused(FailingCall::Call::rename, EPERM, folder_.pfad());
    EXPECT_TRUE(files_.writeAll(path("Text.txt"), "short"));
    EXPECT_EQ(dateiinhalt(place("Text.txt")), "short");
    EXPECT_TRUE(files_.writeAll(path("Text.txt"), "longer again"));
    EXPECT_TRUE(files_.writeAll(path("New.txt"), "new"));
    EXPECT_EQ(dateiinhalt(place("Text.txt")), "longer again");
    EXPECT_EQ(dateiinhalt(place("New.txt")), "new");
    EXPECT_EQ(entries(), 2);
    std::filesystem::remove(place("New.txt"));
    // Refused for the name and too long for the disk: no piece of the new text is left.
    const FileSizeLimit full(20);
    EXPECT_FALSE(files_.writeAll(path("Text.txt"), std::string(30, 'n')));
    EXPECT_FALSE(files_.writeAll(path("New.txt"), std::string(30, 'n')));
    EXPECT_EQ(dateiinhalt(place("Text.txt")), "longer again");
    EXPECT_EQ(entries(), 1);
}

TEST_F(TroubledFilesTest, ALinkStaysALink) {
    dateiSchreiben(place("Real.txt"), "before");
    std::filesystem::create_symlink("Real.txt", place("Link.txt"));
    EXPECT_TRUE(files_.writeAll(path("Link.txt"), "after"));
    EXPECT_TRUE(std::filesystem::is_symlink(place("Link.txt")));
    EXPECT_EQ(dateiinhalt(place("Real.txt")), "after");
}

TEST_F(TroubledFilesTest, WhatIsMadeTakesTheRightsOfItsFolderWhateverTheUmask) {
    const auto mode = [&](const std::string& name) {
        return static_cast<unsigned>(std::filesystem::status(folder_.pfad() / name).permissions());
    };
    for (const mode_t mask : {0000U, 0022U, 0077U})
        for (const unsigned rights : {02775U, 0770U, 0700U, 0777U, 02750U, 01777U}) {
            SCOPED_TRACE(testing::Message() << std::oct << "umask " << mask << ", folder " << rights);
            std::filesystem::create_directory(place("D"));
            dateiSchreiben(place("D") / "Old.txt", "");
            ::chmod((place("D") / "Old.txt").c_str(), 0644);
            ::chmod(place("D").c_str(), rights);
            const Umask umask(mask);
            EXPECT_TRUE(files_.openRecords(path("D/Mia._"))->write(0, "x"));
            EXPECT_TRUE(files_.writeAll(path("D/New.txt"), "x"));
            EXPECT_TRUE(files_.writeAll(path("D/Old.txt"), "x"));
            EXPECT_TRUE(files_.copyFile(path("D/Old.txt"), path("D/Copy.txt")));
            EXPECT_TRUE(files_.makeFolder(path("D/Class") + L"\\"));
            for (const char* name : {"D/Mia._", "D/New.txt", "D/Old.txt", "D/Copy.txt"})
                EXPECT_EQ(mode(name), rights & 0666) << name;
            EXPECT_EQ(mode("D/Class"), rights & 02777);
            std::filesystem::remove_all(place("D"));
        }
}

TEST_F(TroubledFilesTest, WhatAFolderHandsOnByItsAccessListIsLeftAsItIs) {
    constexpr std::uint32_t someone = 61001;
    if (!setAccess(folder_.pfad(),
                   {{Access::owner, 7},
                    {Access::user, 6, someone},
                    {Access::group, 4},
                    {Access::mask, 6},
                    {Access::others, 0}},
                   true))
        GTEST_SKIP() << "(SKIP) this file system knows no access lists";
    const Umask umask(0077);
    EXPECT_TRUE(files_.writeAll(path("New.txt"), "x"));
    EXPECT_TRUE(files_.openRecords(path("Mia._"))->write(0, "x"));
    EXPECT_TRUE(files_.makeFolder(path("Class")));
    // The group's bits of a mode are the bound of the list.
    for (const char* name : {"New.txt", "Mia._"})
        EXPECT_EQ(std::filesystem::status(place(name)).permissions(), std::filesystem::perms{0660}) << name;
    EXPECT_EQ(std::filesystem::status(place("Class")).permissions(), std::filesystem::perms{0760});
}

TEST_F(TroubledFilesTest, ARenameReplacesNothingAndMayChangeTheCaseOfAName) {
    std::filesystem::create_directories(place("Igel"));
    std::filesystem::create_directories(place("Dachs"));
    dateiSchreiben(place("a.txt"), "a");
    dateiSchreiben(place("b.txt"), "b");
    EXPECT_FALSE(files_.rename(path("igel"), path("DACHS")));
    EXPECT_FALSE(files_.rename(path("a.txt"), path("b.txt")));
    EXPECT_EQ(dateiinhalt(place("b.txt")), "b");
    EXPECT_TRUE(files_.rename(path("igel") + L"\\", path("IGEL")));
    EXPECT_EQ(files_.listFolders(logikpfad(folder_.pfad())), (Names{L"Dachs", L"IGEL"}));
    EXPECT_TRUE(files_.rename(path("a.txt"), path("igel/c.txt")));
    EXPECT_EQ(dateiinhalt(place("IGEL") / "c.txt"), "a");
}

} // namespace
} // namespace klopfmeise
