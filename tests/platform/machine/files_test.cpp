#include "platform/machine/posix_files.h"
#include "tests/platform/machine/troubles.h"
#include "tests/probe.h"

#include <cerrno>
#include <iterator>

namespace klopfmeise {
namespace {

using Names = std::vector<std::wstring>;
using Call = FailingCall::Call;

class PosixFilesTest : public testing::Test {
protected:
    fs::path place(const std::string& name) const { return folder_.pfad() / name; }
    std::wstring path(const std::string& name) const { return logikpfad(place(name)); }
    Names list(std::wstring_view pattern) {
        return files_.listFiles(logikpfad(folder_.pfad()) + L"\\", pattern).value();
    }
    auto entries() const { return std::distance(fs::directory_iterator(folder_.pfad()), {}); }
    unsigned mode(const std::string& name) const {
        return static_cast<unsigned>(fs::status(place(name)).permissions());
    }

    Wegwerfordner folder_;
    PosixFiles files_;
};

TEST_F(PosixFilesTest, FilesAreListedByPatternInAReadersOrder) {
    // The last one is "ä" in Windows-1252, as a share that knows no UTF-8 may hand it out.
    for (const char* name : {"Zoe._", "anna._", "Äpfel._", "Apfel._", "Straße._", "Strasse2._", "Mia._.bak",
                             "._", ".Emil._", "Tim._X", "K\xe4the._"})
        dateiSchreiben(place(name), "");
    fs::create_directory(place("Klasse._"));
    const std::wstring foreign = L"K\xDCE4the._";
    EXPECT_EQ(list(L"*._"),
              (Names{L"anna._", L"Apfel._", L"Äpfel._", foreign, L"Straße._", L"Strasse2._", L"Zoe._"}));
    EXPECT_EQ(list(L"*.BAK"), Names{L"Mia._.bak"});
    EXPECT_EQ(list(L"?pfel._"), (Names{L"Apfel._", L"Äpfel._"}));
    EXPECT_EQ(list(L"*a*._*"), (Names{L"anna._", L"Apfel._", L"Mia._.bak", L"Straße._", L"Strasse2._"}));
    EXPECT_EQ(list(L"*.*").size(), 9U);
    EXPECT_EQ(files_.listFolders(logikpfad(folder_.pfad())), Names{L"Klasse._"});
    EXPECT_FALSE(files_.listFolders(path("Klasse._/nowhere")));
    ASSERT_TRUE(files_.openRecords(logikpfad(folder_.pfad()) + L"\\" + foreign)->write(0, "x"));
    EXPECT_EQ(dateiinhalt(place("K\xe4the._")), "x") << "opened under the same bytes";
}

TEST_F(PosixFilesTest, ARecordThatDoesNotFitLeavesTheOneThatWasThere) {
    // Inside the file, across its end, and wholly behind it.
    for (const std::size_t length : {256U, 150U, 200U, 128U}) {
        const std::string before(length, 'a');
        dateiSchreiben(place("Mia._"), before);
        const FileSizeLimit full(200);
        const auto records = files_.openRecords(path("Mia._"));
        EXPECT_FALSE(records->write(128, std::string(128, 'b'))) << length;
        EXPECT_TRUE(records->write(0, "c"));
        EXPECT_TRUE(records->close());
        EXPECT_EQ(dateiinhalt(place("Mia._")), "c" + before.substr(1)) << length;
    }
    // What a share says only at closing.
    const auto records = files_.openRecords(path("Mia._"));
    const FailingCall full(Call::close, EDQUOT, folder_.pfad());
    EXPECT_FALSE(records->close());
}

TEST_F(PosixFilesTest, AFileIsReplacedWholeOrNotAtAll) {
    dateiSchreiben(place("Text.txt"), "before");
    const std::string longer(5000, 'n');
    const auto expectUnchanged = [&] {
        EXPECT_FALSE(files_.writeAll(path("text.TXT"), longer) || files_.writeAll(path("New.txt"), longer));
        EXPECT_EQ(dateiinhalt(place("Text.txt")), "before");
        EXPECT_EQ(entries(), 1);
    };
    for (const auto& [call, error] :
         {std::pair(Call::flush, EIO), {Call::close, EDQUOT}, {Call::rename, ENOSPC}}) {
        const FailingCall failing(call, error, folder_.pfad());
        expectUnchanged();
    }
    {
        const FileSizeLimit full(4096);
        expectUnchanged();
    }
    fs::create_symlink("Text.txt", place("Link.txt"));
    for (const char* name : {"text.TXT", "Link.txt"}) {
        EXPECT_TRUE(files_.writeAll(path(name), longer + name));
        EXPECT_EQ(dateiinhalt(place("Text.txt")), longer + name);
    }
    EXPECT_TRUE(fs::is_symlink(place("Link.txt")));
    EXPECT_EQ(entries(), 2);
}

TEST_F(PosixFilesTest, WhereAShareRefusesToReplaceTheOldFileIsWrittenOver) {
    dateiSchreiben(place("Text.txt"), "what stood there before");
    const FailingCall refused(Call::rename, EPERM, folder_.pfad());
    for (const char* text : {"short", "longer again"})
        for (const char* name : {"Text.txt", "New.txt"}) {
            EXPECT_TRUE(files_.writeAll(path(name), text));
            EXPECT_EQ(dateiinhalt(place(name)), text);
        }
    EXPECT_EQ(entries(), 2);
    fs::remove(place("New.txt"));
    // Refused for the name and too long for the disk: no piece of the new text is left.
    const FileSizeLimit full(20);
    for (const char* name : {"Text.txt", "New.txt"})
        EXPECT_FALSE(files_.writeAll(path(name), std::string(30, 'n')));
    EXPECT_EQ(dateiinhalt(place("Text.txt")), "longer again");
    EXPECT_EQ(entries(), 1);
}

TEST_F(PosixFilesTest, AShareThatTakesAwayWhatIsOpenWhileItIsReplacedLosesNothing) {
    dateiSchreiben(place("Text.txt"), "before");
    for (const int times : {0, 3}) {
        const FailingCall taking(Call::replaceOpen, EACCES, folder_.pfad(), times);
        EXPECT_TRUE(files_.writeAll(path("Text.txt"), "new"));
        EXPECT_EQ(dateiinhalt(place("Text.txt")), "new");
        EXPECT_EQ(entries(), 1);
    }
}

TEST_F(PosixFilesTest, WhatIsMadeTakesTheRightsOfItsFolderWhateverTheUmask) {
    for (const mode_t mask : {0000U, 0022U, 0077U})
        for (const unsigned rights : {02775U, 0770U, 0700U, 0777U, 02750U, 01777U}) {
            SCOPED_TRACE(testing::Message() << std::oct << "umask " << mask << ", folder " << rights);
            fs::create_directory(place("D"));
            dateiSchreiben(place("D/Old.txt"), "");
            ::chmod(place("D/Old.txt").c_str(), 0644);
            ::chmod(place("D").c_str(), rights);
            const Umask umask(mask);
            EXPECT_TRUE(files_.openRecords(path("D/Mia._"))->write(0, "x") &&
                        files_.writeAll(path("D/New.txt"), "x") && files_.writeAll(path("D/Old.txt"), "x") &&
                        files_.copyFile(path("D/Old.txt"), path("D/Copy.txt")) &&
                        files_.makeFolder(path("D/Class") + L"\\"));
            for (const char* name : {"D/Mia._", "D/New.txt", "D/Old.txt", "D/Copy.txt"})
                EXPECT_EQ(mode(name), rights & 0666) << name;
            EXPECT_EQ(mode("D/Class"), rights & 02777);
            fs::remove_all(place("D"));
        }
}

TEST_F(PosixFilesTest, ARenameReplacesNothingAndAFolderGoesOnlyWithWhatACrashLeftInIt) {
    for (const char* name : {"Igel/.klopfmeise-1-0", "Dachs/x", "a.txt", "b.txt"})
        dateiSchreiben(place(name), name);
    EXPECT_FALSE(files_.rename(path("igel"), path("DACHS")) || files_.rename(path("a.txt"), path("b.txt")));
    EXPECT_EQ(dateiinhalt(place("b.txt")), "b.txt");
    // The case of a name may change.
    EXPECT_TRUE(files_.rename(path("igel") + L"\\", path("IGEL")));
    EXPECT_EQ(files_.listFolders(path("")), (Names{L"Dachs", L"IGEL"}));
    EXPECT_TRUE(files_.rename(path("a.txt"), path("igel/c.txt")));
    EXPECT_EQ(dateiinhalt(place("IGEL/c.txt")), "a.txt");

    EXPECT_FALSE(files_.removeFolder(path("Igel")));
    EXPECT_TRUE(files_.removeFile(path("Igel/c.txt")) && files_.removeFolder(path("Igel") + L"\\"));
}

} // namespace
} // namespace klopfmeise
