#include "platform/rich_text_box.h"

#include "platform/form_runtime.h"

#include <algorithm>
#include <utility>

namespace klopfmeise {

namespace {

/// Characters of `text()` that a run's character takes: a line break inside a paragraph shows as CR LF.
int places(wchar_t c) { return c == L'\n' ? 2 : 1; }

/// Adds characters to a paragraph, joining those of one format.
void append(RtfAbsatz& paragraph, wchar_t c, const RtfZeichenformat& format) {
    if (paragraph.laeufe.empty() || paragraph.laeufe.back().format != format)
        paragraph.laeufe.push_back({{}, format});
    paragraph.laeufe.back().text += c;
}

} // namespace

RichTextBox::RichTextBox(Container& parent, std::wstring_view name, const Rect& place, Look look, int index)
    : Control(parent, name, place, index)
    , change(std::move(look.change))
    , document_(dokumentAusKlartext(L""))
    , font_(look.font)
    , readOnly_(look.readOnly)
    , spoken_(std::move(look.spoken)) {
    if (!look.visible)
        startHidden();
}

void RichTextBox::setText(std::wstring_view text) {
    RtfDokument document = dokumentAusKlartext(text);
    for (RtfAbsatz& paragraph : document.absaetze)
        for (RtfLauf& run : paragraph.laeufe) {
            run.format.schriftart = font_.name;
            run.format.groesseHalbpunkte = static_cast<int>(font_.points * 2);
            run.format.fett = font_.bold;
        }
    setDocument(std::move(document));
}

bool RichTextBox::loadFile(const std::wstring& path) {
    const auto bytes = form().runtime().services().files.readAll(path, rtfHöchstlänge);
    if (!bytes)
        return false;
    setDocument(rtfLesen(*bytes));
    return true;
}

bool RichTextBox::saveFile(const std::wstring& path) const {
    return form().runtime().services().files.writeAll(path, rtfSchreiben(document_));
}

void RichTextBox::setDocument(RtfDokument document) {
    document_ = std::move(document);
    text_ = document_.klartext();
    selectionStart_ = 0;
    selectionLength_ = 0;
    changed();
    if (change)
        change();
}

void RichTextBox::select(int start, int length) {
    const int size = static_cast<int>(text_.size());
    selectionStart_ = std::clamp(start, 0, size);
    selectionLength_ = std::clamp(length, 0, size - selectionStart_);
    changed();
}

void RichTextBox::formatSelection(const RtfZeichenformat& format, Ausrichtung alignment) {
    const int from = selectionStart_;
    const int to = selectionStart_ + selectionLength_;
    int at = 0;
    for (RtfAbsatz& paragraph : document_.absaetze) {
        const int begin = at;
        RtfAbsatz formatted{.laeufe = {}, .ausrichtung = paragraph.ausrichtung};
        for (const RtfLauf& run : paragraph.laeufe)
            for (const wchar_t c : run.text) {
                append(formatted, c, at >= from && at < to ? format : run.format);
                at += places(c);
            }
        if (begin <= to && at >= from)
            formatted.ausrichtung = alignment;
        paragraph = std::move(formatted);
        at += 2;
    }
    changed();
    if (change)
        change();
}

void RichTextBox::edited(RtfDokument document, int selectionStart, int selectionLength) {
    selectionStart_ = selectionStart;
    selectionLength_ = selectionLength;
    if (document == document_)
        return;
    document_ = std::move(document);
    text_ = document_.klartext();
    if (change)
        change();
}

} // namespace klopfmeise
