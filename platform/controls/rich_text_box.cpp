#include "platform/controls/rich_text_box.h"

#include "platform/machine/services.h"

#include <algorithm>
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
    , document_(documentFromPlainText(L"")) {}

void RichTextBox::setText(std::wstring_view text) {
    RtfDocument document = documentFromPlainText(text);
    for (RtfParagraph& paragraph : document.paragraphs)
        for (RtfRun& run : paragraph.runs) {
            run.format.typeface = font().name;
            run.format.halfPoints = static_cast<int>(font().points * 2);
            run.format.bold = font().bold;
        }
    setDocument(std::move(document));
}

bool RichTextBox::loadFile(const std::wstring& path) {
    const auto bytes = host().files().readAll(path, rtfMaxLength);
    if (!bytes)
        return false;
    setDocument(readRtf(*bytes));
    return true;
}

bool RichTextBox::saveFile(const std::wstring& path) const {
    return host().files().writeAll(path, writeRtf(document_));
}

void RichTextBox::setDocument(RtfDocument document) {
    document_ = std::move(document);
    text_ = document_.plainText();
    selectionStart_ = 0;
    selectionLength_ = 0;
    changed();
}

void RichTextBox::select(int start, int length) {
    const int size = static_cast<int>(text_.size());
    selectionStart_ = std::clamp(start, 0, size);
    selectionLength_ = std::clamp(length, 0, size - selectionStart_);
    changed();
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

void RichTextBox::edited(RtfDocument document, int selectionStart, int selectionLength) {
    selectionStart_ = selectionStart;
    selectionLength_ = selectionLength;
    if (document == document_)
        return;
    document_ = std::move(document);
    text_ = document_.plainText();
    if (look().change)
        look().change();
}

} // namespace klopfmeise
