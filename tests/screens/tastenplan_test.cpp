#include "screens/tastenplan.h"

#include <gtest/gtest.h>

#include <string>

namespace klopfmeise {
namespace {

struct Griff {
    std::wstring_view zeichen;
    int taste;
    std::vector<int> finger;
};

TEST(Tastenplan, ZeichenLiegenAufTasteUndFinger) {
    const Griff griffe[] = {
        {L"^°", 1, {1}},   {L"1!", 2, {1}},     {L"2²", 3, {1}},   {L"3§³", 4, {2}},   {L"4$", 5, {3}},
        {L"5%", 6, {4}},   {L"6&", 7, {4}},     {L"7/{", 8, {7}},  {L"8([", 9, {7}},   {L"9)]", 10, {8}},
        {L"0=}", 11, {9}}, {L"ß?\\", 12, {10}}, {L"´`", 13, {10}}, {L"qQ@", 16, {1}},  {L"wW", 17, {2}},
        {L"eE€", 18, {3}}, {L"rR", 19, {4}},    {L"tT", 20, {4}},  {L"zZ", 21, {7}},   {L"uU", 22, {7}},
        {L"iI", 23, {8}},  {L"oO", 24, {9}},    {L"pP", 25, {10}}, {L"üÜ", 26, {10}},  {L"+*~", 27, {10}},
        {L"aA", 30, {1}},  {L"sS", 31, {2}},    {L"dD", 32, {3}},  {L"fF", 33, {4}},   {L"gG", 34, {4}},
        {L"hH", 35, {7}},  {L"jJ", 36, {7}},    {L"kK", 37, {8}},  {L"lL", 38, {9}},   {L"öÖ", 39, {10}},
        {L"äÄ", 40, {10}}, {L"#'", 41, {10}},   {L"<>|", 43, {1}}, {L"yY", 44, {1}},   {L"xX", 45, {2}},
        {L"cC", 46, {3}},  {L"vV", 47, {4}},    {L"bB", 48, {4}},  {L"nN", 49, {7}},   {L"mM", 50, {7}},
        {L",;", 51, {8}},  {L".:", 52, {9}},    {L"-_", 53, {10}}, {L" ", 57, {5, 6}},
    };
    std::size_t zeichenzahl = 0;
    for (const Griff& griff : griffe)
        for (const wchar_t z : griff.zeichen) {
            SCOPED_TRACE(static_cast<int>(z));
            ++zeichenzahl;
            EXPECT_EQ(tasteFür(z), griff.taste);
            EXPECT_EQ(tasteFürZeichencode(z), griff.taste);
            EXPECT_EQ(fingerFür(griff.taste), griff.finger);
        }
    std::size_t imPlan = 0;
    for (const Taste& t : tasten())
        imPlan += t.zeichen.size();
    EXPECT_EQ(imPlan, zeichenzahl) << "ein Zeichen auf zwei Tasten, oder hier nicht genannt";
}

TEST(Tastenplan, WasKeineTasteHat) {
    for (const wchar_t z : {L'"', L'\b', L'\r', L'\n', L'\t', L'\0', L'µ', L'ẞ'})
        EXPECT_EQ(tasteFür(z), 0) << static_cast<int>(z);
    EXPECT_EQ(tasteFürZeichencode(L'"'), 0);
    EXPECT_EQ(tasteFürZeichencode(8), 14);
    EXPECT_EQ(tasteFürZeichencode(13), 28);
    for (const int keine : {0, 60})
        EXPECT_THROW(taste(keine), std::out_of_range);
    EXPECT_TRUE(fingerFür(42).empty());
}

TEST(Tastenplan, TheKeysFillTheirRowsFromEdgeToEdge) {
    for (const Taste& a : tasten())
        for (const Taste& b : tasten())
            EXPECT_EQ(a.lage.intersected(b.lage).empty(), &a != &b)
                << "Tasten " << a.nummer << " und " << b.nummer;
    for (const int erste : {1, 15, 29, 42, 55})
        EXPECT_EQ(taste(erste).lage.left, taste(1).lage.left) << erste;
    for (const int letzte : {14, 28, 54, 59})
        EXPECT_EQ(taste(letzte).lage.right(), taste(14).lage.right()) << letzte;
}

} // namespace
} // namespace klopfmeise
