#include "platform/headless/headless_editor.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace klopfmeise {

namespace {

constexpr wchar_t paragraphEnd = L'\r';

struct Sign {
    wchar_t character = 0;
    RtfFormat format;
    RtfAlignment alignment = RtfAlignment::left; ///< of the paragraph that ends here
};

/// Characters of the box's text that it takes.
int places(wchar_t character) { return character == paragraphEnd || character == L'\n' ? 2 : 1; }

std::vector<Sign> signsOf(const RtfDocument& document) {
    std::vector<Sign> signs;
    for (const RtfParagraph& paragraph : document.paragraphs) {
        for (const RtfRun& run : paragraph.runs)
            for (const wchar_t character : run.text)
                signs.push_back({character, run.format, paragraph.alignment});
        signs.push_back({paragraphEnd, {}, paragraph.alignment});
    }
    return signs;
}

/// Of signs the last of which ends a paragraph.
RtfDocument documentOf(const std::vector<Sign>& signs) {
    RtfDocument document;
    RtfParagraph paragraph;
    for (const Sign& sign : signs) {
        if (sign.character == paragraphEnd) {
            paragraph.alignment = sign.alignment;
            document.paragraphs.push_back(std::exchange(paragraph, {}));
            continue;
        }
        if (paragraph.runs.empty() || paragraph.runs.back().format != sign.format)
            paragraph.runs.push_back({{}, sign.format});
        paragraph.runs.back().text += sign.character;
    }
    return document;
}

/// The sign that begins at a place of the box's text, or behind it.
std::ptrdiff_t signAt(const std::vector<Sign>& signs, int place) {
    std::ptrdiff_t at = 0;
    for (int left = place; left > 0; ++at)
        left -= places(signs[static_cast<std::size_t>(at)].character);
    return at;
}

} // namespace

void insertIntoEditor(RichTextBox& box, const std::wstring& text) {
    if (box.readOnly())
        return;
    std::vector<Sign> signs = signsOf(box.document());
    const std::ptrdiff_t from = signAt(signs, box.selectionStart());
    const std::ptrdiff_t to = signAt(signs, box.selectionStart() + box.selectionLength());
    RtfFormat format = box.ownFormat();
    for (std::ptrdiff_t at = from; at > 0; --at)
        if (const Sign& sign = signs[static_cast<std::size_t>(at) - 1]; sign.character != paragraphEnd) {
            format = sign.format;
            break;
        }
    const RtfAlignment alignment = signs[static_cast<std::size_t>(to)].alignment;
    std::vector<Sign> inserted;
    int caret = box.selectionStart();
    const RtfAdmission admission = rtfAdmitted(text, box.room(box.selectionLength()));
    for (const wchar_t character : admission.text) {
        inserted.push_back({character == L'\n' ? paragraphEnd : character, format, alignment});
        caret += places(inserted.back().character);
    }
    signs.erase(signs.begin() + from, signs.begin() + to);
    signs.insert(signs.begin() + from, inserted.begin(), inserted.end());
    box.edited(documentOf(signs), caret, 0);
    if (!admission.whole)
        box.overflowed();
}

void removeFromEditor(RichTextBox& box, bool before) {
    if (box.selectionLength() == 0) {
        const int caret = box.selectionStart();
        moveInEditor(box, before);
        box.movedTo(std::min(caret, box.selectionStart()), std::abs(caret - box.selectionStart()));
    }
    if (box.selectionLength() > 0)
        insertIntoEditor(box, L"");
}

void moveInEditor(RichTextBox& box, bool back) {
    const int start = box.selectionStart();
    const int end = start + box.selectionLength();
    if (start < end) {
        box.movedTo(back ? start : end, 0);
        return;
    }
    const std::wstring& text = box.text();
    const auto at = static_cast<std::size_t>(start);
    if (back && at > 0)
        box.movedTo(start - (text[at - 1] == L'\n' ? 2 : 1), 0);
    else if (!back && at < text.size())
        box.movedTo(start + (text[at] == L'\r' ? 2 : 1), 0);
}

} // namespace klopfmeise
