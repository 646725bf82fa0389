#pragma once

#include "platform/forms/form.h"
#include "platform/qt/container_widget.h"

namespace klopfmeise {

/// The widget of a form: a child that fills the stage for a full-screen form, a window of its own for the
/// others.
class FormWidget final : public ContainerWidget {
public:
    FormWidget(QtFormView& view, Form& form, QWidget* parent);

    Form& form() const { return form_; }
    /// The colour around a form that does not fill its window.
    void setSurroundings(Color color) { surroundings_ = color; }
    /// True if a key came here unused since the last call: no widget of the form wanted it.
    bool takeUnusedKey();

protected:
    void paintGround(const Canvas& canvas, const QRect& dirty) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    Form& form_;
    Color surroundings_ = colors::paleGrey;
    bool unusedKey_ = false;
};

} // namespace klopfmeise
