#include "platform/controls/rich_text_box.h"
#include "platform/qt/control_view.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/text_painter.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextEdit>

#include <algorithm>

namespace klopfmeise {

namespace {

/// Properties of a character format that the editor carries along unchanged: the size as the document has it,
/// before the zoom, and the name of the typeface, empty for that of the box.
enum FormatProperty { halfPoints = QTextFormat::UserProperty, typeface };

Qt::Alignment alignment(RtfAlignment alignment) {
    switch (alignment) {
    case RtfAlignment::right:
        return Qt::AlignRight;
    case RtfAlignment::center:
        return Qt::AlignHCenter;
    case RtfAlignment::justified:
        return Qt::AlignJustify;
    case RtfAlignment::left:
        break;
    }
    return Qt::AlignLeft;
}

RtfAlignment alignment(Qt::Alignment alignment) {
    if (alignment & Qt::AlignRight)
        return RtfAlignment::right;
    if (alignment & Qt::AlignHCenter)
        return RtfAlignment::center;
    return alignment & Qt::AlignJustify ? RtfAlignment::justified : RtfAlignment::left;
}

QTextCharFormat shownFormat(const RtfFormat& format, const Font& boxFont, const Scale& scale) {
    Font font{.name = boxFont.name, .points = format.halfPoints / 2.0, .bold = format.bold};
    QTextCharFormat shown;
    shown.setFont(widgetFont(font, scale));
    if (!format.typeface.empty() && format.typeface != courier)
        shown.setFontFamilies({toQt(format.typeface)});
    shown.setFontItalic(format.italic);
    shown.setFontUnderline(format.underlined);
    shown.setForeground(QColor(static_cast<QRgb>(format.color)));
    shown.setProperty(halfPoints, format.halfPoints);
    shown.setProperty(typeface, toQt(format.typeface));
    return shown;
}

RtfFormat modelFormat(const QTextCharFormat& shown, const Font& boxFont) {
    RtfFormat format;
    const int size = shown.intProperty(halfPoints);
    format.halfPoints = size > 0 ? size : static_cast<int>(boxFont.points * 2);
    format.typeface = size > 0 ? fromQt(shown.stringProperty(typeface)) : std::wstring(boxFont.name);
    format.bold = shown.fontWeight() >= QFont::Bold;
    format.italic = shown.fontItalic();
    format.underlined = shown.fontUnderline();
    format.color =
        shown.foreground().style() == Qt::NoBrush ? 0 : shown.foreground().color().rgb() & 0xFFFFFF;
    return format;
}

/// Places in the model's text, where a line end counts two, against those in the editor, where it counts one.
int editorPosition(const std::wstring& text, int place) {
    const auto end = text.begin() + std::clamp(place, 0, static_cast<int>(text.size()));
    return place - static_cast<int>(std::count(text.begin(), end, L'\n'));
}
int modelPosition(const std::wstring& text, int position) {
    int place = 0;
    for (int at = 0; at < position && place < static_cast<int>(text.size()); ++at)
        place += text[static_cast<std::size_t>(place)] == L'\r' ? 2 : 1;
    return place;
}

class RichTextView final : public ControlView {
public:
    RichTextView(QtFormView& view, RichTextBox& box, QTextEdit* widget)
        : ControlView(view, box, widget)
        , box_(box)
        , edit_(*widget) {
        edit_.setAcceptRichText(false);
        edit_.setTabChangesFocus(true);
        edit_.setReadOnly(box.readOnly());
        edit_.setFrameShape(QFrame::NoFrame);
        const auto told = [this] {
            tell([this] {
                RtfDocument document = documentOf();
                const std::wstring text = document.plainText();
                const QTextCursor cursor = edit_.textCursor();
                const int start = modelPosition(text, cursor.selectionStart());
                const int end = modelPosition(text, cursor.selectionEnd());
                shown_ = document;
                box_.edited(std::move(document), start, end - start);
            });
        };
        QObject::connect(widget, &QTextEdit::textChanged, widget, told);
        QObject::connect(widget, &QTextEdit::selectionChanged, widget, told);
    }

private:
    void syncLook(const Scale& scale) override {
        // A box that only holds a text for the program is never laid out.
        if (!box_.visible())
            return;
        const QSignalBlocker quiet(edit_);
        if (!built_ || shown_ != box_.document() || scale_ != scale)
            build(scale);
        QTextCursor cursor = edit_.textCursor();
        const int start = editorPosition(box_.text(), box_.selectionStart());
        const int end = editorPosition(box_.text(), box_.selectionStart() + box_.selectionLength());
        if (cursor.selectionStart() != start || cursor.selectionEnd() != end) {
            cursor.setPosition(start);
            cursor.setPosition(end, QTextCursor::KeepAnchor);
            edit_.setTextCursor(cursor);
        }
    }

    void build(const Scale& scale) {
        edit_.clear();
        edit_.setFont(widgetFont(box_.font(), scale));
        QTextCursor cursor(edit_.document());
        cursor.beginEditBlock();
        bool first = true;
        for (const RtfParagraph& paragraph : box_.document().paragraphs) {
            QTextBlockFormat block;
            block.setAlignment(alignment(paragraph.alignment));
            if (first)
                cursor.setBlockFormat(block);
            else
                cursor.insertBlock(block);
            first = false;
            for (const RtfRun& run : paragraph.runs)
                cursor.insertText(toQt(run.text).replace(u'\n', QChar::LineSeparator),
                                  shownFormat(run.format, box_.font(), scale));
        }
        cursor.endEditBlock();
        shown_ = box_.document();
        scale_ = scale;
        built_ = true;
    }

    RtfDocument documentOf() const {
        RtfDocument document;
        for (QTextBlock block = edit_.document()->begin(); block.isValid(); block = block.next()) {
            RtfParagraph paragraph{.runs = {}, .alignment = alignment(block.blockFormat().alignment())};
            for (auto it = block.begin(); !it.atEnd(); ++it) {
                QString text = it.fragment().text();
                RtfRun run{fromQt(text.replace(QChar::LineSeparator, u'\n')),
                           modelFormat(it.fragment().charFormat(), box_.font())};
                if (!paragraph.runs.empty() && paragraph.runs.back().format == run.format)
                    paragraph.runs.back().text += run.text;
                else
                    paragraph.runs.push_back(std::move(run));
            }
            document.paragraphs.push_back(std::move(paragraph));
        }
        return document;
    }

    RichTextBox& box_;
    QTextEdit& edit_;
    RtfDocument shown_;
    Scale scale_;
    bool built_ = false;
};

} // namespace

std::unique_ptr<ControlView> makeRichTextView(QtFormView& view, RichTextBox& box, QWidget* parent) {
    return std::make_unique<RichTextView>(view, box, new QTextEdit(parent));
}

} // namespace klopfmeise
