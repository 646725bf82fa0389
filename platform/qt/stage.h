#pragma once

#include "platform/qt/scale.h"
#include "platform/values/color.h"
#include "platform/values/geometry.h"

#include <QPointer>
#include <QRect>
#include <QWidget>

#include <functional>
#include <vector>

namespace klopfmeise {

struct Desk;
class QtFormView;

/// The one borderless window that covers the screen. The backdrop and the full-screen forms are its children,
/// so that changing between them opens and closes no window and works where windows cannot place themselves.
/// It exists while one of them is shown.
class Stage {
public:
    explicit Stage(Desk& desk);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// Called when the screen or its pixels became others.
    std::function<void()> resized;

    /// The window, made if need be.
    QWidget* window();
    /// The window if it is on the screen, else null.
    QWidget* shownWindow() const;
    /// Shows a form above the others.
    void raise(QtFormView& view);
    void leave(QtFormView& view);
    /// The form that is seen; null if none is.
    QtFormView* top() const { return views_.empty() ? nullptr : views_.back(); }
    bool isWindow(const QWindow& window) const;
    /// Takes over the top-most state and title of the form that is seen.
    void refresh();
    /// Lays all forms out anew, as the size of the window or of the screen's pixels changed.
    void layout();

    /// The screen in logical pixels.
    QRect screen() const;
    double ratio() const;
    /// Zoom of full-screen forms.
    double zoom() const;
    /// Zoom of a form that is a window of its own: the same, but it fits on the screen with its decoration.
    double windowZoom(const Rect& form) const;

private:
    class Window;

    void place(QtFormView& view);
    void closeIfEmpty();
    QSize devicePixels() const;

    Desk& desk_;
    QPointer<QWidget> window_;
    std::vector<QtFormView*> views_;
};

} // namespace klopfmeise
