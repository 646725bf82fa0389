#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

/// A typeface as the forms name it. "Courier New" and "Wingdings" are the only two in use; a backend draws
/// the first with a monospaced face of the same widths and the second with the Unicode signs its letters
/// stand for.
struct Font {
    std::wstring_view name = L"Courier New";
    double points = 9.75;
    bool bold = false;

    friend bool operator==(const Font&, const Font&) = default;
};

/// Sizes of text in unzoomed twips, from a formula and not from the fonts of a machine, so that layouts are
/// alike everywhere: a character is 0.6 of the font's pixel size wide (the advance of the face), a
/// line 1.1328 of it high (ascent plus descent), both rounded to whole pixels. Bold 14.25 points gives 165 by
/// 330.
struct FontMetrics {
    int charWidth = 0;
    int lineHeight = 0;
};

FontMetrics metricsOf(const Font& font);

/// The size in twips that a caption takes with this font, its line breaks obeyed and no line wrapped.
struct TextSize {
    int width = 0;
    int height = 0;
};
TextSize sizeOf(std::wstring_view text, const Font& font);

/// The lines of `text` when words wrap at `width` twips; a word wider than that is broken. They are views
/// into `text`.
std::vector<std::wstring_view> linesOf(std::wstring_view text, const Font& font, int width);

/// How many lines `text` takes when words wrap at `width` twips; a word wider than that is broken.
int wrappedLines(std::wstring_view text, const Font& font, int width);

inline constexpr std::wstring_view courier = L"Courier New";
inline constexpr std::wstring_view wingdings = L"Wingdings";

/// The Unicode sign that a caption in Wingdings stands for; other characters come back as they are.
wchar_t wingdingsSign(wchar_t letter);

} // namespace klopfmeise
