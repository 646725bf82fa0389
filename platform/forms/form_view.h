#pragma once

#include "platform/values/geometry.h"

#include <memory>
#include <string>

namespace klopfmeise {

class Container;
class Control;
class Form;

/// What a backend shows of one form. It is told of each change of the model and paints at the next idle
/// moment, but for `paintNow`, which paints before it returns. Calls for a form that is not shown may be
/// passed over.
class FormView {
public:
    virtual ~FormView() = default;
    /// A control made after the view.
    virtual void controlAdded(Control& control) = 0;
    /// A control is about to go; only its address, name and place may be used.
    virtual void controlRemoved(Control& control) = 0;
    /// A windowed control has to be read anew.
    virtual void controlChanged(Control& control) = 0;
    /// Drawn controls changed in this area of the container (twips).
    virtual void areaDirty(Container& container, const Rect& area) = 0;
    /// Paints what is dirty, and this area in any case.
    virtual void paintNow(Container& container, const Rect& area) = 0;
    /// Caption, place, enabled or top-most state of the form changed.
    virtual void formChanged() = 0;
    virtual void show() = 0;
    virtual void hide() = 0;
    /// Brings the window to the front and makes it the active one, as far as windows of a program can.
    virtual void activate() = 0;
    virtual void takeFocus(Control& control) = 0;
};

enum class MessageIcon { none, stop, question, information };
enum class MessageButtons { ok, yesNoCancel };
enum class Answer { ok, yes, no, cancel };

struct Message {
    std::wstring text;
    std::wstring title;
    MessageIcon icon = MessageIcon::none;
    MessageButtons buttons = MessageButtons::ok;
};

/// What the runtime of the forms asks of a toolkit.
class Backend {
public:
    virtual ~Backend() = default;
    virtual std::unique_ptr<FormView> makeView(Form& form) = 0;
    /// Shows a message box over the active form and waits for its answer.
    virtual Answer showMessage(const Message& message) = 0;
    /// Lets `milliseconds` pass with nothing served. Keys and clicks that come meanwhile arrive afterwards,
    /// in order; of the repeats of a held key one is kept.
    virtual void wait(int milliseconds) = 0;
    /// The next tick of a timer is due at another time than before.
    virtual void timersChanged() = 0;
    /// Size of the screen in unzoomed twips.
    virtual Rect screen() const = 0;
    /// Ends the event loop once the running handler has returned.
    virtual void quit() = 0;
};

} // namespace klopfmeise
