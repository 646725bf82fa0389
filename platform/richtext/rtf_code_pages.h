#pragma once

namespace klopfmeise {

// Numbers of code pages as documents give them.
inline constexpr int codePageAnsi = 1252;
inline constexpr int codePagePc = 437;
inline constexpr int codePagePca = 850;
inline constexpr int codePageMac = 10000;

/// The code page that a font's character set stands for; 0: that of the document.
[[nodiscard]] int codePageOfCharset(int charset);
/// The character of a byte; Windows-1252 for a page without a table. Bytes that a page leaves undefined
/// become control characters.
[[nodiscard]] wchar_t fromCodePage(int page, unsigned char byte);

} // namespace klopfmeise
