#include "platform/qt/accessible.h"

#include "platform/controls/drawn.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

#include <map>
#include <vector>

namespace klopfmeise {

namespace {

bool spoken(const Control& control) {
    return control.visible() && !control.windowed() && takesMouse(control.kind()) &&
           !control.spokenName().empty();
}

std::vector<Control*> spokenControls(const Container& container) {
    std::vector<Control*> result;
    for (std::size_t slot = 0; slot < container.controlCount(); ++slot)
        if (Control& control = container.control(slot); spoken(control))
            result.push_back(&control);
    return result;
}

/// A drawn label or picture. It may outlive its control; then it is not valid any more.
class DrawnAccess final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    DrawnAccess(ContainerWidget& widget, Control& control)
        : widget_(&widget)
        , address_(&control) {}

    bool isValid() const override { return control() != nullptr; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return widget_ ? widget_->window()->windowHandle() : nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(widget_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override {
        const Control* known = control();
        if (!known)
            return {};
        if (kind == QAccessible::Name)
            return toQt(known->spokenName());
        return kind == QAccessible::Description ? toQt(known->toolTip()) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        const Control* known = control();
        return known ? widget_->logical(known->place()).translated(widget_->mapToGlobal(QPoint())) : QRect();
    }
    QAccessible::Role role() const override {
        const Control* known = control();
        if (known && (known->click() || known->mouseDown()))
            return QAccessible::Button;
        return known && known->kind() == Kind::picture ? QAccessible::Graphic : QAccessible::StaticText;
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        const Control* known = control();
        state.invalid = !known;
        state.disabled = known && !known->enabled();
        state.invisible = !known || !known->visible() || !widget_->isVisible();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    QStringList actionNames() const override {
        return role() == QAccessible::Button ? QStringList{pressAction()} : QStringList();
    }
    void doAction(const QString& name) override {
        if (Control* known = control(); known && name == pressAction())
            widget_->view().router().press(*known);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    Control* control() const {
        if (!widget_)
            return nullptr;
        const Container& container = widget_->container();
        for (std::size_t slot = 0; slot < container.controlCount(); ++slot)
            if (&container.control(slot) == address_)
                return &container.control(slot);
        return nullptr;
    }

    QPointer<ContainerWidget> widget_;
    const Control* address_;
};

class ContainerAccess final : public QAccessibleWidget {
public:
    explicit ContainerAccess(ContainerWidget& widget)
        : QAccessibleWidget(&widget,
                            dynamic_cast<FormWidget*>(&widget) ? QAccessible::Client : QAccessible::Grouping)
        , widget_(widget) {}

    QString text(QAccessible::Text kind) const override {
        if (const auto* form = dynamic_cast<const FormWidget*>(&widget_)) {
            // The name is what is read out when it changes.
            const std::wstring target = form->form().spokenTarget();
            const bool asked =
                kind == QAccessible::Name || kind == QAccessible::Value || kind == QAccessible::Description;
            if (asked && !target.empty())
                return toQt(target);
        }
        return QAccessibleWidget::text(kind);
    }
    int childCount() const override {
        return static_cast<int>(drawn().size()) + QAccessibleWidget::childCount();
    }
    QAccessibleInterface* child(int index) const override {
        const auto controls = drawn();
        const auto count = static_cast<int>(controls.size());
        if (index < 0)
            return nullptr;
        return index < count ? access(*controls[static_cast<std::size_t>(index)])
                             : QAccessibleWidget::child(index - count);
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        if (QAccessibleInterface* widget = QAccessibleWidget::childAt(x, y);
            widget && widget->object() != object())
            return widget;
        const auto controls = drawn();
        for (auto control = controls.rbegin(); control != controls.rend(); ++control)
            if (QAccessibleInterface* found = access(**control); found->rect().contains(x, y))
                return found;
        return nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto controls = drawn();
        for (std::size_t i = 0; i < controls.size(); ++i)
            if (access(*controls[i]) == child)
                return static_cast<int>(i);
        const int index = QAccessibleWidget::indexOfChild(child);
        return index < 0 ? index : index + static_cast<int>(controls.size());
    }

protected:
    ~ContainerAccess() override {
        for (const auto& [control, id] : ids_)
            QAccessible::deleteAccessibleInterface(id);
    }

private:
    std::vector<Control*> drawn() const { return spokenControls(widget_.container()); }
    QAccessibleInterface* access(Control& control) const {
        if (const auto found = ids_.find(&control); found != ids_.end())
            return QAccessible::accessibleInterface(found->second);
        // Taken over by the toolkit's table of interfaces.
        auto* made = new DrawnAccess(widget_, control);
        ids_[&control] = QAccessible::registerAccessibleInterface(made);
        return made;
    }

    ContainerWidget& widget_;
    mutable std::map<const Control*, QAccessible::Id> ids_;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* widget = dynamic_cast<ContainerWidget*>(object);
    return widget ? new ContainerAccess(*widget) : nullptr;
}

} // namespace

void installAccessibility() { QAccessible::installFactory(makeInterface); }

void announceTarget(FormWidget& form, std::wstring& told) {
    if (!QAccessible::isActive())
        return;
    std::wstring target = form.form().spokenTarget();
    if (target == told)
        return;
    told = std::move(target);
    for (const auto type : {QAccessible::NameChanged, QAccessible::DescriptionChanged}) {
        QAccessibleEvent event(&form, type);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace klopfmeise
