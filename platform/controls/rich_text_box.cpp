#include "platform/controls/rich_text_box.h"

#include "platform/machine/services.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace klopfmeise {

namespace {

/// Characters of `text()` that a run's character takes: a line break inside a paragraph shows as CR LF.
int places(wchar_t c) { return c == L'\n' ? 2 : 1; }

/// Adds characters to a paragraph, joining those of one format.
void append(RtfParagraph& paragraph, wchar_t c, const RtfFormat& format) {
    if (paragraph.runs.empty() || paragraph.runs.back().format != format)
        paragraph.runs.push_back({{}, format});
    paragraph.runs.back().text += c;
}

} // namespace

RichTextBox::RichTextBox(Container& parent, std::wstring_view name, const Rect& place, Look look, int index)
    : TypedControl(Kind::richTextBox, parent, name, place, std::move(look), index)
    , document_(documentFromPlainText(L"").document) {}

RtfFormat RichTextBox::ownFormat() const {
    return {.typeface = std::wstring(font().name),
            .halfPoints = static_cast<int>(std::lround(font().points * 2)),
            .bold = font().bold};
}

void RichTextBox::setText(std::wstring_view text) {
    RtfReading reading = documentFromPlainText(text);
    for (RtfParagraph& paragraph : reading.document.paragraphs)
        for (RtfRun& run : paragraph.runs)
            run.format = ownFormat();
    setDocument(std::move(reading));
}

RtfOutcome RichTextBox::loadFile(const std::wstring& path) {
    // Opening for records would make a missing file.
    const bool there = !host().files().search(path).empty();
    const auto file = there ? host().files().openRecords(path) : nullptr;
    RtfReading reading = readRtf([&file](std::int64_t offset, std::size_t size) {
        return file ? file->read(offset, size) : std::nullopt;
    });
    const RtfOutcome outcome = reading.outcome;
    setDocument(std::move(reading));
    return outcome;
}

bool RichTextBox::saveFile(const std::wstring& path) const {
    return whole_ && host().files().writeAll(path, writeRtf(document_, ownFormat()));
}

void RichTextBox::setDocument(RtfReading reading) {
    document_ = std::move(reading.document);
    whole_ = reading.outcome == RtfOutcome::whole;
    text_ = document_.plainText();
    selectionStart_ = 0;
    selectionLength_ = 0;
    changed();
}

void RichTextBox::select(int start, int length) {
    movedTo(start, length);
    changed();
}

void RichTextBox::movedTo(int selectionStart, int selectionLength) {
    const int size = static_cast<int>(text_.size());
    selectionStart_ = std::clamp(selectionStart, 0, size);
    selectionLength_ = std::clamp(selectionLength, 0, size - selectionStart_);
}

void RichTextBox::formatSelection(const RtfFormat& format, RtfAlignment alignment) {
    const int from = selectionStart_;
    const int to = selectionStart_ + selectionLength_;
    int at = 0;
    for (RtfParagraph& paragraph : document_.paragraphs) {
        const int begin = at;
        RtfParagraph formatted{.runs = {}, .alignment = paragraph.alignment};
        for (const RtfRun& run : paragraph.runs)
            for (const wchar_t c : run.text) {
                append(formatted, c, at >= from && at < to ? format : run.format);
                at += places(c);
            }
        if (begin <= to && at >= from)
            formatted.alignment = alignment;
        paragraph = std::move(formatted);
        at += 2;
    }
    changed();
}

std::size_t RichTextBox::room(int replaced) const {
    const std::size_t kept = text_.size() - static_cast<std::size_t>(replaced);
    return kept < rtfMaxCharacters ? rtfMaxCharacters - kept : 0;
}

void RichTextBox::overflowed() {
    if (look().overflow)
        look().overflow();
}

void RichTextBox::edited(RtfDocument document, int selectionStart, int selectionLength) {
    std::wstring text = document.plainText();
    if (readOnly() || text.size() > rtfMaxCharacters) {
        // The surface shows what was not taken.
        changed();
        return;
    }
    const bool other = document != document_;
    document_ = std::move(document);
    text_ = std::move(text);
    movedTo(selectionStart, selectionLength);
    if (other && look().change)
        look().change();
}

} // namespace klopfmeise
