#pragma once

#include <array>
#include <string_view>

namespace klopfmeise {

/// What is printed on a key. Keys with a drawn sign instead (arrows, space bar) have no text at all.
struct Tastenlegende {
    std::wstring_view haupt;    ///< without a modifier; a letter stands as its capital
    std::wstring_view umschalt; ///< with shift, printed above
    std::wstring_view altGr;    ///< with Alt Gr, printed at the lower right
};

/// In the order of the keys 1 to 59. The print is that of a German keyboard, so it also shows the double
/// quote, which the course does not teach.
inline constexpr std::array<Tastenlegende, 59> Tastenlegenden{{
    {L"^", L"°", L""},  {L"1", L"!", L""},   {L"2", L"\"", L"²"},   {L"3", L"§", L"³"},  {L"4", L"$", L""},
    {L"5", L"%", L""},  {L"6", L"&", L""},   {L"7", L"/", L"{"},    {L"8", L"(", L"["},  {L"9", L")", L"]"},
    {L"0", L"=", L"}"}, {L"ß", L"?", L"\\"}, {L"´", L"`", L""},     {L"", L"", L""},     {L"", L"", L""},
    {L"Q", L"", L"@"},  {L"W", L"", L""},    {L"E", L"", L"€"},     {L"R", L"", L""},    {L"T", L"", L""},
    {L"Z", L"", L""},   {L"U", L"", L""},    {L"I", L"", L""},      {L"O", L"", L""},    {L"P", L"", L""},
    {L"Ü", L"", L""},   {L"+", L"*", L"~"},  {L"", L"", L""},       {L"", L"", L""},     {L"A", L"", L""},
    {L"S", L"", L""},   {L"D", L"", L""},    {L"F", L"", L""},      {L"G", L"", L""},    {L"H", L"", L""},
    {L"J", L"", L""},   {L"K", L"", L""},    {L"L", L"", L""},      {L"Ö", L"", L""},    {L"Ä", L"", L""},
    {L"#", L"'", L""},  {L"", L"", L""},     {L"<", L">", L"|"},    {L"Y", L"", L""},    {L"X", L"", L""},
    {L"C", L"", L""},   {L"V", L"", L""},    {L"B", L"", L""},      {L"N", L"", L""},    {L"M", L"", L""},
    {L",", L";", L""},  {L".", L":", L""},   {L"-", L"_", L""},     {L"", L"", L""},     {L"Strg", L"", L""},
    {L"Alt", L"", L""}, {L"", L"", L""},     {L"Alt Gr", L"", L""}, {L"Strg", L"", L""},
}};

} // namespace klopfmeise
