#include "platform/controls/text_box.h"
#include "platform/qt/control_view.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/text_painter.h"
#include "platform/qt/zoom_style.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSignalBlocker>

#include <algorithm>

namespace klopfmeise {

namespace {

/// The model's line ends are CR LF and count as two characters, those of the toolkit's editor are one.
QString editorText(const std::wstring& text) {
    return toQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}
std::wstring modelText(const QString& text) {
    return fromQt(QString(text).replace(u'\n', QStringLiteral("\r\n")));
}

int editorPosition(const std::wstring& text, int caret) {
    const auto end = std::min(text.size(), static_cast<std::size_t>(std::max(0, caret)));
    return static_cast<int>(editorText(text.substr(0, end)).size());
}
int modelPosition(const QString& text, int position) {
    return static_cast<int>(modelText(text.left(position)).size());
}

Qt::Alignment alignment(Align align) {
    return align == Align::left ? Qt::AlignLeft : align == Align::center ? Qt::AlignHCenter : Qt::AlignRight;
}

QPalette colored(QPalette palette, const TextBox& box) {
    palette.setColor(QPalette::Base, toQt(box.back()));
    palette.setColor(QPalette::Text, toQt(box.fore()));
    return palette;
}

/// Accents are composed by the program itself, so that they come through its queue like any other key.
template <class Base>
class WithoutInputMethod : public Base {
public:
    using Base::Base;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override {
        return query == Qt::ImEnabled ? QVariant(false) : Base::inputMethodQuery(query);
    }
};

/// What is pasted passes the key filter of the box like typed characters.
class LineEdit final : public WithoutInputMethod<QLineEdit> {
public:
    LineEdit(QtFormView& view, TextBox& box, QWidget* parent)
        : WithoutInputMethod(parent)
        , view_(view)
        , box_(box) {
        setAcceptDrops(false);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const QString text = event->text();
        if (event->matches(QKeySequence::Paste))
            paste(QClipboard::Clipboard);
        else if (!text.isEmpty() && text[0].isPrint() && room() < text.size())
            event->accept();
        else
            WithoutInputMethod::keyPressEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::MiddleButton)
            paste(QClipboard::Selection);
        else
            WithoutInputMethod::mouseReleaseEvent(event);
    }

private:
    void paste(QClipboard::Mode mode) {
        if (isReadOnly())
            return;
        // Behind the widget's own event: the filter may unload the form.
        view_.router().tell(view_.form(), [this, text = fromQt(QGuiApplication::clipboard()->text(mode))] {
            insert(toQt(view_.router().pasted(box_, text)).left(std::max(0, room())));
        });
    }
    /// How many characters can still be typed; the program may have set more than that.
    int room() const {
        if (box_.maxLength() <= 0)
            return maxLength();
        return box_.maxLength() - static_cast<int>(text().size() - selectedText().size());
    }

    QtFormView& view_;
    TextBox& box_;
};

class LineView final : public ControlView {
public:
    LineView(QtFormView& view, TextBox& box, QLineEdit* widget)
        : ControlView(view, box, widget)
        , box_(box)
        , edit_(*widget) {
        const auto told = [this] {
            tell([this] { box_.edited(fromQt(edit_.text()), edit_.cursorPosition()); });
        };
        if (box.passwordSign()) {
            edit_.setProperty(ZoomStyle::passwordSign, static_cast<int>(box.passwordSign()));
            // Has the editor ask the style for the sign again.
            QEvent change(QEvent::StyleChange);
            QCoreApplication::sendEvent(widget, &change);
        }
        QObject::connect(widget, &QLineEdit::textChanged, widget, told);
        QObject::connect(widget, &QLineEdit::cursorPositionChanged, widget, told);
        QObject::connect(widget, &QLineEdit::selectionChanged, widget, told);
    }

private:
    void syncLook(const Scale& scale) override {
        const QSignalBlocker quiet(edit_);
        edit_.setFont(widgetFont(box_.font(), scale));
        edit_.setPalette(colored(edit_.palette(), box_));
        edit_.setAlignment(alignment(box_.align()) | Qt::AlignVCenter);
        edit_.setReadOnly(box_.readOnly());
        edit_.setEchoMode(box_.passwordSign() ? QLineEdit::Password : QLineEdit::Normal);
        const QString text = toQt(box_.text());
        // The bound is one of typing only.
        const int longest = box_.maxLength() > 0 ? box_.maxLength() : 32767;
        edit_.setMaxLength(std::max(longest, static_cast<int>(text.size())));
        if (edit_.text() != text)
            edit_.setText(text);
        const int caret = std::min(box_.caret(), static_cast<int>(text.size()));
        if (edit_.cursorPosition() != caret)
            edit_.setCursorPosition(caret);
        if (box_.allSelected())
            edit_.selectAll();
    }

    TextBox& box_;
    QLineEdit& edit_;
};

class Editor final : public WithoutInputMethod<QPlainTextEdit> {
public:
    Editor(const TextBox& box, QWidget* parent)
        : WithoutInputMethod(parent)
        , box_(box) {
        setTabChangesFocus(true);
        setUndoRedoEnabled(!box.readOnly());
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const QString text = event->text();
        const bool types = !text.isEmpty() && (text[0].isPrint() || text[0] == u'\r');
        if (types && room() < (text[0] == u'\r' ? 2 : text.size()))
            return;
        QPlainTextEdit::keyPressEvent(event);
    }
    void insertFromMimeData(const QMimeData* source) override {
        QString text = source->text().remove(u'\r');
        while (static_cast<int>(modelText(text).size()) > room())
            text.chop(1);
        textCursor().insertText(text);
    }

private:
    /// How many characters can still be typed.
    int room() const {
        if (box_.maxLength() <= 0)
            return 1'000'000;
        const auto replaced = static_cast<int>(textCursor().selectedText().size());
        return box_.maxLength() - static_cast<int>(modelText(toPlainText()).size()) + replaced;
    }

    const TextBox& box_;
};

class AreaView final : public ControlView {
public:
    AreaView(QtFormView& view, TextBox& box, Editor* widget)
        : ControlView(view, box, widget)
        , box_(box)
        , edit_(*widget) {
        const auto told = [this] {
            tell([this] {
                const QString text = edit_.toPlainText();
                box_.edited(modelText(text), modelPosition(text, edit_.textCursor().position()));
            });
        };
        QObject::connect(widget, &QPlainTextEdit::textChanged, widget, told);
        QObject::connect(widget, &QPlainTextEdit::cursorPositionChanged, widget, told);
        QObject::connect(widget, &QPlainTextEdit::selectionChanged, widget, told);
    }

private:
    void syncLook(const Scale& scale) override {
        const QSignalBlocker quiet(edit_);
        edit_.setFont(widgetFont(box_.font(), scale));
        edit_.setPalette(colored(edit_.palette(), box_));
        edit_.setReadOnly(box_.readOnly());
        QTextOption option = edit_.document()->defaultTextOption();
        option.setAlignment(alignment(box_.align()));
        edit_.document()->setDefaultTextOption(option);
        const QString text = editorText(box_.text());
        if (edit_.toPlainText() != text)
            edit_.setPlainText(text);
        QTextCursor cursor = edit_.textCursor();
        const int caret = editorPosition(box_.text(), box_.caret());
        if (cursor.position() != caret) {
            cursor.setPosition(caret);
            edit_.setTextCursor(cursor);
        }
        if (box_.allSelected())
            edit_.selectAll();
    }

    TextBox& box_;
    Editor& edit_;
};

} // namespace

std::unique_ptr<ControlView> makeTextView(QtFormView& view, TextBox& box, QWidget* parent) {
    if (box.multiLine())
        return std::make_unique<AreaView>(view, box, new Editor(box, parent));
    return std::make_unique<LineView>(view, box, new LineEdit(view, box, parent));
}

} // namespace klopfmeise
