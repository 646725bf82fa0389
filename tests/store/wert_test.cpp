#include "store/wert.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

using std::string_literals::operator""s;

TEST(Wert, EachTagReadsAndWritesItsBytes) {
    const std::vector<std::pair<std::string, Wert>> fälle{
        {"\x02\x00\xFB\xFF"s, std::int16_t{-5}},    {"\x03\x00\x40\x9C\x00\x00"s, std::int32_t{40000}},
        {"\x04\x00\x00\x00\x20\x41"s, 10.0F},       {"\x05\x00\x00\x00\x00\x00\x00\xC0\x52\x40"s, 75.0},
        {"\x08\x00\x03\x00\x31\x32\xE4"s, L"12ä"s}, {"\x00\x00"s, Wert{}},
    };
    for (const auto& [bytes, wert] : fälle) {
        EXPECT_EQ(wertAus(bytes + "Rest"), wert);
        EXPECT_EQ(bytesAus(wert, 128), bytes);
    }
}

TEST(Wert, WhatIsUnknownOrCutOffReadsAsEmpty) {
    for (const std::string& bytes :
         {""s, "\x02"s, "\x02\x00\x01"s, "\x05\x00\x00\x00\x00"s, "\x07\x00\x01\x02"s,
          "\x08\x00\x05\x00\x61\x62"s, "\x08\x00\xFF\xFF"s, "\xFF\xFF\x01\x02\x03\x04"s})
        EXPECT_TRUE(istLeer(wertAus(bytes)));
}

TEST(Wert, ComparesByWhatItSays) {
    EXPECT_TRUE(gleich(Wert{}, 0) && gleich(Wert{}, L""));
    EXPECT_FALSE(gleich(Wert{std::int16_t{0}}, L""));
    EXPECT_TRUE(gleich(Wert{L"120"s}, 120) && gleich(Wert{L" 1,5 "s}, 1.5));
    EXPECT_FALSE(gleich(Wert{L"zwölf"s}, 12) || gleich(Wert{L""s}, 0));
    EXPECT_TRUE(gleich(oderNull(Wert{std::nan("")}), 0));
    EXPECT_EQ(textAus(Wert{0.1F}, L','), L"0,1");
    EXPECT_EQ(textAus(Wert{98.5}, L','), L"98,5");
    EXPECT_EQ(ganzzahl(-32768), Wert{std::int16_t{-32768}});
    EXPECT_EQ(ganzzahl(40000), Wert{std::int32_t{40000}});
}

} // namespace
} // namespace klopfmeise
