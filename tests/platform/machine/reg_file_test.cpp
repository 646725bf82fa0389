#include "platform/machine/reg_file.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>
#include <iterator>
#include <optional>

namespace klopfmeise {
namespace {

using std::string_literals::operator""s;
using Type = Registry::Type;

/// Type and bytes, comparable.
using Content = std::pair<Type, std::string>;

class RegFileTest : public testing::Test {
protected:
    static constexpr const char* key_ = "Software\\Klopfmeise";

    std::optional<Content> read(const std::string& name) {
        const auto opened = file_.open(RegFile::localMachine, key_, RegFile::readAccess);
        Registry::Value value;
        const bool found = file_.query(opened.handle, name, value) == RegistryStatus::success;
        file_.close(opened.handle);
        return found ? std::optional(Content(value.type, value.bytes)) : std::nullopt;
    }
    void write(const std::string& name, const Registry::Value& value) {
        const auto opened = file_.open(RegFile::localMachine, key_, RegFile::writeAccess);
        EXPECT_EQ(file_.set(opened.handle, name, value), RegistryStatus::success);
        EXPECT_EQ(file_.close(opened.handle), RegistryStatus::success);
    }
    void lay(const std::string& lines) { dateiSchreiben(path_, lines); }

    Wegwerfordner folder_;
    std::string path_ = (folder_.pfad() / "machine.reg").string();
    RegFile file_{path_};
};

TEST_F(RegFileTest, ReadsEveryFormThatAnAdministratorMayLay) {
    lay("\xEF\xBB\xBF[hkey_local_machine\\SOFTWARE\\klopfmeise]\n"
        "\"Pin\"=\"72\\\"\\\\94\"\n"
        "\"Path\"=hex(1):43,3a,\\\r\n  5c,44\r\n"
        "\"Lines\"=hex(7):61,00,62  \n"
        "\"Number\"=dword:0000002a\n"
        "\"Bytes\"=hex:00,ff\n"
        "\"Umlaut\"=\"ä€\"\n"
        "\"Broken\"=hex:zz\n\"Open\"=\"abc\n\"Large\"=dword:1ffffffff\n"
        "[HKEY_CURRENT_USER\\Software\\Klopfmeise]\n\"Foreign\"=\"x\"\n");
    EXPECT_EQ(read("Pin"), Content(Type::string, "72\"\\94\0"s));
    EXPECT_EQ(read("pATH"), Content(Type::string, "C:\\D"));
    EXPECT_EQ(read("Lines"), Content(Type::multiString, "a\0b"s));
    EXPECT_EQ(read("Number"), Content(Type::dword, "\x2a\0\0\0"s));
    EXPECT_EQ(read("Bytes"), Content(Type::binary, "\0\xff"s));
    EXPECT_EQ(read("Umlaut"), Content(Type::string, "\xE4\x80\0"s));
    for (const char* name : {"Broken", "Open", "Large", "Foreign", "Missing"})
        EXPECT_FALSE(read(name)) << name;
}

TEST_F(RegFileTest, WhatIsSetComesBackAndTheRestOfTheFileStays) {
    const std::string before = "Windows Registry Editor Version 5.00\r\n\r\n; laid by hand\r\n"
                               "[HKEY_LOCAL_MACHINE\\Software\\Other]\r\n\"Pin\"=\"1111\"\r\n\r\n";
    const std::string behind = "\r\n[HKEY_LOCAL_MACHINE\\Software\\Third]\r\n\"Pin\"=dword:00000001\r\n";
    lay(before +
        "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n\"Kept\"=\"as laid\"\r\n\"Pin\"=\"7294\"\r\n" +
        behind);
    write("PIN", {Type::string, "1\"2"});
    write("New", {Type::multiString, "a\0b"s});
    write("Number", {Type::dword, "\x2a\0\0\x80"s});
    EXPECT_EQ(dateiinhalt(path_),
              before +
                  "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n\"Kept\"=\"as laid\"\r\n"
                  "\"Pin\"=hex(1):31,22,32\r\n\"New\"=hex(7):61,00,62\r\n\"Number\"=dword:8000002a\r\n" +
                  behind);
    EXPECT_EQ(read("Pin"), Content(Type::string, "1\"2"));
    // No temporary file is left beside it.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.pfad()), {}), 1);
}

TEST_F(RegFileTest, AKeyIsMadeOnceAndOnlyInTheMachinesHive) {
    EXPECT_EQ(file_.open(RegFile::localMachine, key_, RegFile::readAccess).status,
              RegistryStatus::fileNotFound);
    EXPECT_EQ(file_.create(RegFile::localMachine, key_, RegFile::writeAccess).disposition, 1U);
    EXPECT_EQ(file_.create(RegFile::localMachine, key_, RegFile::writeAccess).disposition, 2U);
    EXPECT_EQ(dateiinhalt(path_), "Windows Registry Editor Version 5.00\r\n\r\n"
                                  "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n");
    constexpr std::uint32_t currentUser = 0x80000001;
    EXPECT_EQ(file_.create(currentUser, key_, RegFile::writeAccess).status, RegistryStatus::accessDenied);
    RegFile nowhere((folder_.pfad() / "missing" / "machine.reg").string());
    EXPECT_EQ(nowhere.create(RegFile::localMachine, key_, RegFile::writeAccess).status,
              RegistryStatus::accessDenied);
}

TEST_F(RegFileTest, AKeyOpenedForReadingIsNotWritten) {
    lay("[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n\"Pin\"=\"7294\"\r\n");
    const auto opened = file_.open(RegFile::localMachine, key_, RegFile::readAccess);
    EXPECT_EQ(file_.set(opened.handle, "Pin", {Type::string, "1"}), RegistryStatus::accessDenied);
    EXPECT_EQ(file_.close(opened.handle), RegistryStatus::success);
    EXPECT_EQ(file_.close(opened.handle), RegistryStatus::invalidHandle);
    EXPECT_EQ(read("Pin"), Content(Type::string, "7294\0"s));
}

} // namespace
} // namespace klopfmeise
