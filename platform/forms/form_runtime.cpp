#include "platform/forms/form_runtime.h"

#include "platform/forms/timer.h"

#include <algorithm>
#include <utility>

namespace klopfmeise {

FormRuntime::FormRuntime(Backend& backend, Services services)
    : backend_(backend)
    , services_(services) {}

FormRuntime::~FormRuntime() {
    // The forms' timers and controls leave the runtime while it still stands.
    for (auto* list : {&unloaded_, &forms_})
        for (auto& form : *list)
            form->view_.reset();
    unloaded_.clear();
    forms_.clear();
}

void FormRuntime::add(std::wstring_view name, Maker maker) { makers_.emplace(name, std::move(maker)); }

std::vector<std::wstring_view> FormRuntime::names() const {
    std::vector<std::wstring_view> names;
    for (const auto& [name, maker] : makers_)
        names.push_back(name);
    return names;
}

bool FormRuntime::available(std::wstring_view name) {
    if (makers_.contains(name))
        return true;
    message({.text = L"Dieser Teil von Klopfmeise gehört nicht zu dieser Ausgabe des Programms.",
             .title = L"Klopfmeise",
             .icon = MessageIcon::information});
    return false;
}

Form* FormRuntime::loaded(std::wstring_view name) const {
    const auto found = std::ranges::find_if(forms_, [&](const auto& form) { return form->name() == name; });
    return found == forms_.end() ? nullptr : found->get();
}

Form* FormRuntime::frameOf(const Form& form) const {
    return form.kind() == FormKind::child ? loaded(form.look().frame) : nullptr;
}

std::vector<std::unique_ptr<Form>>::iterator FormRuntime::position(const Form& form) {
    return std::ranges::find_if(forms_, [&](const auto& f) { return f.get() == &form; });
}

Form* FormRuntime::load(std::wstring_view name) {
    if (Form* form = loaded(name))
        return form;
    if (!available(name))
        return nullptr;
    std::unique_ptr<Form> made = makers_.find(name)->second();
    if (made->kind() == FormKind::child && !frameOf(*made)) {
        show(made->look().frame);
        // The frame may have opened this very child while it loaded.
        if (Form* form = loaded(name); form || !frameOf(*made))
            return form;
    }
    // A child that comes while its frame unloads would outlive it.
    if (const Form* frame = frameOf(*made); frame && frame->unloading_)
        return nullptr;
    // Behind the active form, so that unloading another one does not bring a form to the front that was never
    // shown.
    Form* form = forms_.insert(forms_.begin(), std::move(made))->get();
    dispatch(*form, [form] { form->Form_Load(); });
    // A form that unloads itself while it loads may be gone already.
    return loaded(name) == form ? form : nullptr;
}

bool FormRuntime::show(std::wstring_view name) {
    Form* form = load(name);
    if (!form || ended_)
        return false;
    reveal(*form);
    activate(*form);
    return true;
}

void FormRuntime::reveal(Form& form) {
    if (Form* frame = frameOf(form); frame && !frame->visible_)
        reveal(*frame);
    if (!form.view_)
        form.view_ = backend_.makeView(form);
    form.visible_ = true;
    form.view_->show();
}

void FormRuntime::activate(Form& form) {
    Form* frame = frameOf(form);
    if (!frame) {
        activateTop(&form);
        return;
    }
    const auto life = form.life();
    activateTop(frame);
    if (!life.expired() && !form.unloaded_ && !ended_)
        activateChild(*frame, form);
}

void FormRuntime::activateTop(Form* form) {
    if (form == active_)
        return;
    Form* before = std::exchange(active_, form);
    if (form)
        std::rotate(position(*form), position(*form) + 1, forms_.end());
    if (before && !before->unloaded_)
        dispatch(*before, [before] { before->Form_Deactivate(); });
    if (!form || active_ != form || ended_)
        return;
    form->view_->activate();
    dispatch(*form, [form] { form->Form_Activate(); });
}

void FormRuntime::activateChild(Form& frame, Form& child) {
    if (frame.activeChild_ == &child)
        return;
    Form* before = std::exchange(frame.activeChild_, &child);
    std::rotate(position(child), position(child) + 1, forms_.end());
    const auto life = frame.life();
    if (before && !before->unloaded_)
        dispatch(*before, [before] { before->Form_Deactivate(); });
    if (life.expired() || frame.activeChild_ != &child || ended_)
        return;
    child.view_->activate();
    dispatch(child, [&child] { child.Form_Activate(); });
}

void FormRuntime::unload(Form& form) {
    if (form.unloaded_ || std::exchange(form.unloading_, true))
        return;
    if (form.kind() == FormKind::frame) {
        std::vector<std::wstring_view> children;
        for (const auto& other : forms_)
            if (frameOf(*other) == &form)
                children.push_back(other->name());
        for (const auto child : children)
            unload(child);
    }
    dispatch(form, [&form] { form.Form_Unload(); });
    form.unloaded_ = true;
    form.visible_ = false;
    if (form.view_)
        form.view_->hide();
    const auto at = position(form);
    Form* frame = frameOf(form);
    unloaded_.push_back(std::move(*at));
    forms_.erase(at);
    if (frame && frame->activeChild_ == &form) {
        frame->activeChild_ = nullptr;
        Form* next = frame->unloading_ ? nullptr : lastVisible(frame);
        // A window over the frame stays the active one.
        if (next)
            activateChild(*frame, *next);
    } else if (active_ == &form) {
        active_ = nullptr;
        activateTop(lastVisible(nullptr));
    }
    if (!busy())
        settle();
}

Form* FormRuntime::lastVisible(const Form* frame) const {
    const auto found = std::find_if(forms_.rbegin(), forms_.rend(), [&](const auto& form) {
        return form->visible() && frameOf(*form) == frame && !form->unloading_;
    });
    return found == forms_.rend() ? nullptr : found->get();
}

void FormRuntime::unload(std::wstring_view name) {
    if (Form* form = loaded(name))
        unload(*form);
}

Form* FormRuntime::active() const {
    return active_ && active_->activeChild_ ? active_->activeChild_ : active_;
}

void FormRuntime::end() {
    if (std::exchange(ended_, true))
        return;
    backend_.quit();
}

Answer FormRuntime::message(const Message& message) { return backend_.showMessage(message); }

void FormRuntime::wait(int milliseconds) {
    if (!ended_ && milliseconds > 0)
        backend_.wait(milliseconds);
}

void FormRuntime::work(const std::function<void()>& job) { backend_.work(job); }

void FormRuntime::dispatch(Form& form, const std::function<void()>& handler) {
    if (form.unloaded_ || ended_)
        return;
    struct Depth {
        explicit Depth(int& depth)
            : depth_(depth) {
            ++depth_;
        }
        ~Depth() { --depth_; }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;
        int& depth_;
    };
    {
        const Depth depth(depth_);
        handler();
    }
    if (!busy())
        settle();
}

void FormRuntime::settle() {
    for (auto& form : unloaded_)
        form->view_.reset();
    unloaded_.clear();
    if (forms_.empty())
        end();
}

void FormRuntime::windowActivated(Form& form) {
    if (!form.unloaded_ && form.visible() && form.enabled() && !ended_)
        activate(form);
}

void FormRuntime::windowClosed(Form& form) {
    if (!ended_ && form.enabled())
        unload(form);
}

void FormRuntime::windowResized(Form& form, int width, int height, WindowState state) {
    FormLook& look = form.look_;
    if (form.unloaded_ || ended_ || (width == look.width && height == look.height && state == look.state))
        return;
    look.width = width;
    look.height = height;
    look.state = state;
    dispatch(form, [&form] { form.Form_Resize(); });
}

void FormRuntime::enter(Timer& timer) { timers_.push_back(&timer); }

void FormRuntime::leave(Timer& timer) {
    std::erase(timers_, &timer);
    backend_.timersChanged();
}

double FormRuntime::nextTick() const {
    double next = -1;
    for (const Timer* timer : timers_)
        if (timer->due() >= 0 && !timer->form().unloaded_ && (next < 0 || timer->due() < next))
            next = timer->due();
    return next;
}

void FormRuntime::serveTimers() {
    if (busy())
        return;
    const double now = services_.clock.seconds();
    const auto overdue = [&]() -> Timer* {
        Timer* first = nullptr;
        for (Timer* timer : timers_)
            if (timer->due() >= 0 && timer->due() <= now && !timer->form().unloaded_ &&
                (!first || timer->due() < first->due()))
                first = timer;
        return first;
    };
    // A tick is due again later than `now` once it has fired, so that each timer fires once at the most.
    while (Timer* timer = ended_ ? nullptr : overdue())
        dispatch(timer->form(), [timer, now] { timer->fire(now); });
}

} // namespace klopfmeise
