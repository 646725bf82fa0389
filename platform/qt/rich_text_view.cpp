#include "platform/controls/rich_text_box.h"
#include "platform/qt/control_view.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/text_painter.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextEdit>

#include <algorithm>
#include <functional>
#include <utility>

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

/// Characters that came in without a format of the document (typed into an empty box) look like the box.
RtfFormat modelFormat(const QTextCharFormat& shown, const RichTextBox& box) {
    const int size = shown.intProperty(halfPoints);
    if (size <= 0)
        return box.ownFormat();
    RtfFormat format;
    format.halfPoints = size;
    format.typeface = fromQt(shown.stringProperty(typeface));
    format.bold = shown.fontWeight() >= QFont::Bold;
    format.italic = shown.fontItalic();
    format.underlined = shown.fontUnderline();
    format.color =
        shown.foreground().style() == Qt::NoBrush ? 0 : shown.foreground().color().rgb() & 0xFFFFFF;
    return format;
}

/// The units that a character of the model's text takes in the editor, which counts a line end as one and a
/// character beyond FFFF as two.
int unitsAt(const std::wstring& text, std::size_t place) {
    if (text[place] == L'\n')
        return 0;
    return text[place] > 0xFFFF ? 2 : 1;
}
int editorPosition(const std::wstring& text, int place) {
    int position = 0;
    for (std::size_t at = 0; at < text.size() && at < static_cast<std::size_t>(place); ++at)
        position += unitsAt(text, at);
    return position;
}
int modelPosition(const std::wstring& text, int position) {
    std::size_t place = 0;
    // A line feed belongs to the carriage return before it.
    for (int left = position; place < text.size() && (left > 0 || text[place] == L'\n'); ++place)
        left -= unitsAt(text, place);
    return static_cast<int>(place);
}

/// Accents are composed by the program itself; there is no undo, since each change is a new document to the
/// program.
class Editor final : public QTextEdit {
public:
    Editor(const RichTextBox& box, QWidget* parent)
        : QTextEdit(parent)
        , box_(box) {
        setAcceptRichText(false);
        setTabChangesFocus(true);
        setUndoRedoEnabled(false);
        setFrameShape(QFrame::NoFrame);
    }

    /// Not all of what was typed or pasted did fit.
    std::function<void()> overflowed;

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override {
        return query == Qt::ImEnabled ? QVariant(false) : QTextEdit::inputMethodQuery(query);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const QString text = event->text();
        const bool types = !text.isEmpty() && (text[0].isPrint() || text[0] == u'\r');
        if (!types || isReadOnly()) {
            QTextEdit::keyPressEvent(event);
            return;
        }
        const RtfAdmission admission = admitted(text);
        // On an empty aligned line the toolkit's Enter would take back the alignment instead.
        if (toQt(admission.text) == text)
            QTextEdit::keyPressEvent(event);
        else
            insert(admission);
    }
    void insertFromMimeData(const QMimeData* source) override {
        if (!isReadOnly())
            insert(admitted(source->text()));
    }

private:
    void insert(const RtfAdmission& admission) {
        if (!admission.text.empty()) {
            textCursor().insertText(toQt(admission.text));
            ensureCursorVisible();
        }
        if (!admission.whole)
            overflowed();
    }
    RtfAdmission admitted(const QString& text) const {
        const QTextCursor cursor = textCursor();
        const int chosen = modelPosition(box_.text(), cursor.selectionEnd()) -
                           modelPosition(box_.text(), cursor.selectionStart());
        return rtfAdmitted(fromQt(text), box_.room(chosen));
    }

    const RichTextBox& box_;
};

class RichTextView final : public ControlView {
public:
    RichTextView(QtFormView& view, RichTextBox& box, Editor* widget)
        : ControlView(view, box, widget)
        , box_(box)
        , edit_(*widget) {
        const auto told = [this] { tell([this] { tellModel(); }); };
        QObject::connect(widget, &QTextEdit::textChanged, widget, [this, told] {
            edited_ = true;
            told();
        });
        edit_.overflowed = [this, told] {
            overflowed_ = true;
            told();
        };
        QObject::connect(widget, &QTextEdit::selectionChanged, widget, told);
        QObject::connect(widget, &QTextEdit::cursorPositionChanged, widget, told);
    }

private:
    void tellModel() {
        const bool edited = std::exchange(edited_, false);
        const bool overflowed = std::exchange(overflowed_, false);
        // The program has put another document there meanwhile.
        if (shown_ != box_.document())
            return;
        RtfDocument document = edited ? documentOf() : RtfDocument();
        const std::wstring text = edited ? document.plainText() : box_.text();
        const QTextCursor cursor = edit_.textCursor();
        const int start = modelPosition(text, cursor.selectionStart());
        const int length = modelPosition(text, cursor.selectionEnd()) - start;
        if (edited) {
            shown_ = document;
            box_.edited(std::move(document), start, length);
        } else {
            box_.movedTo(start, length);
        }
        if (overflowed)
            box_.overflowed();
    }

    void syncLook(const Scale& scale) override {
        // A box that only holds a text for the program is never laid out.
        if (!box_.visible())
            return;
        const QSignalBlocker quiet(edit_);
        edit_.setReadOnly(box_.readOnly());
        if (!built_ || shown_ != box_.document() || scale_ != scale)
            build(scale);
        QTextCursor cursor = edit_.textCursor();
        const int start = editorPosition(box_.text(), box_.selectionStart());
        const int end = editorPosition(box_.text(), box_.selectionStart() + box_.selectionLength());
        if (!edited_ && (cursor.selectionStart() != start || cursor.selectionEnd() != end)) {
            cursor.setPosition(start);
            cursor.setPosition(end, QTextCursor::KeepAnchor);
            edit_.setTextCursor(cursor);
        }
    }

    void build(const Scale& scale) {
        edited_ = false;
        edit_.clear();
        edit_.setFont(widgetFont(box_.font(), scale));
        QTextCursor cursor(edit_.document());
        cursor.beginEditBlock();
        QTextCharFormat last = shownFormat(box_.ownFormat(), box_.font(), scale);
        bool first = true;
        for (const RtfParagraph& paragraph : box_.document().paragraphs) {
            QTextBlockFormat block;
            block.setAlignment(alignment(paragraph.alignment));
            // What is typed into an empty line goes on as the line before it ended. The format of the first
            // line is left over when all is deleted, so that is the box's own.
            if (first) {
                cursor.setBlockFormat(block);
                cursor.setBlockCharFormat(last);
            } else {
                cursor.insertBlock(block, last);
            }
            first = false;
            for (const RtfRun& run : paragraph.runs) {
                last = shownFormat(run.format, box_.font(), scale);
                cursor.insertText(toQt(run.text).replace(u'\n', QChar::LineSeparator), last);
            }
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
                           modelFormat(it.fragment().charFormat(), box_)};
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
    Editor& edit_;
    RtfDocument shown_;
    Scale scale_;
    bool built_ = false;
    /// The user changed the text and the model has not been told yet.
    bool edited_ = false;
    /// As above: something did not fit.
    bool overflowed_ = false;
};

} // namespace

std::unique_ptr<ControlView> makeRichTextView(QtFormView& view, RichTextBox& box, QWidget* parent) {
    return std::make_unique<RichTextView>(view, box, new Editor(box, parent));
}

} // namespace klopfmeise
