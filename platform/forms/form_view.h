#pragma once

#include "platform/controls/surface.h"

namespace klopfmeise {

/// What a backend shows of one form. Calls for a form that is not shown may be passed over.
class FormView : public Surface {
public:
    /// Caption, place, window state, enabled or top-most state of the form changed.
    virtual void formChanged() = 0;
    virtual void show() = 0;
    virtual void hide() = 0;
    /// Brings the window to the front and makes it the active one, as far as windows of a program can.
    virtual void activate() = 0;
    virtual void takeFocus(Control& control) = 0;
};

} // namespace klopfmeise
