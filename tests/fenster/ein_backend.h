#pragma once

#include "platform/qt/qt_backend.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"
#include "tests/platform/diary.h"

namespace klopfmeise {

/// The one backend of the process.
QtBackend& toolkit();
/// Has the toolkit do all that is due.
void settle();
/// A key for the window of a widget, pressed and released; "" as `text` types nothing.
void strike(QWidget& in, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Turns the wheel over the middle of a widget; 120 is a notch.
void turn(QWidget& over, int angle);

/// A stage of the headless tests on that backend. Its forms go with it.
template <class Stage, auto... Before>
class OnToolkit : public testing::Test, public Stage {
protected:
    OnToolkit()
        : Stage(Before..., &toolkit()) {
        toolkit().setRuntime(this->runtime);
    }
    ~OnToolkit() override {
        for (const auto name : this->runtime.names())
            this->runtime.unload(name);
        settle();
    }
    QWidget& widget(std::wstring_view form) {
        return static_cast<QtFormView*>(this->runtime.loaded(form)->view())->widget();
    }
    QWidget& widget(const Control& control) {
        return *widget(formOf(control).name()).template findChild<QWidget*>(toQt(control.fullName()));
    }
};

} // namespace klopfmeise
