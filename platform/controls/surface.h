#pragma once

#include "platform/values/geometry.h"

namespace klopfmeise {

class Container;
class Control;
class Files;

/// Whoever shows the controls of a form. It is told of each change and paints at the next idle moment, but
/// for `paintNow`, which paints before it returns.
class Surface {
public:
    virtual ~Surface() = default;
    /// A control is about to go; only its address, kind, name and place may be used.
    virtual void controlRemoved(Control& control) = 0;
    /// A windowed control was made, or has to be read anew.
    virtual void controlChanged(Control& control) = 0;
    /// Drawn controls changed in this area of the container (twips).
    virtual void areaDirty(Container& container, const Rect& area) = 0;
    /// Paints what is dirty, and this area in any case.
    virtual void paintNow(Container& container, const Rect& area) = 0;
};

/// The form as its controls know it.
class Host {
public:
    /// Null while the form is not shown.
    virtual Surface* surface() const = 0;
    virtual Files& files() = 0;
    virtual void setFocus(Control& control) = 0;
    /// A control is about to go.
    virtual void controlGone(const Control& control) = 0;

protected:
    ~Host() = default;
};

} // namespace klopfmeise
