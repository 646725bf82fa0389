#pragma once

#include "platform/qt/qt_backend.h"
#include "platform/qt/qt_form_view.h"

#include <QString>

namespace klopfmeise {

/// The one backend of the process.
QtBackend& backend();
/// Has the toolkit do all that is due.
void settle();
/// A key for the window of a widget, pressed and released; "" as `text` types nothing.
void strike(QWidget& in, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Takes all forms away again.
void unloadAll(FormRuntime& runtime);

inline QtFormView& viewOf(Form& form) { return *static_cast<QtFormView*>(form.view()); }

} // namespace klopfmeise
