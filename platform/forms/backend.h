#pragma once

#include "platform/forms/form_view.h"
#include "platform/values/geometry.h"

#include <functional>
#include <memory>
#include <string>

namespace klopfmeise {

class Form;

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
    /// Runs a job that may take long (a slow network folder) to its end. The screen is painted meanwhile, but
    /// as in a wait nothing is served. The job must not touch forms or controls.
    virtual void work(const std::function<void()>& job) = 0;
    /// The next tick of a timer is due at another time than before.
    virtual void timersChanged() = 0;
    /// Size of the screen in unzoomed twips.
    virtual Rect screen() const = 0;
    /// Ends the event loop once the running handler has returned.
    virtual void quit() = 0;
};

} // namespace klopfmeise
