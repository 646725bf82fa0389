#include "platform/headless/headless_backend.h"

namespace klopfmeise {

namespace {

/// Remembers what was painted inside a handler; all other changes can be read off the model.
class HeadlessView final : public FormView {
public:
    HeadlessView(Form& form, HeadlessBackend& backend)
        : form_(form)
        , backend_(backend) {}

    void controlRemoved(Control&) override {}
    void controlChanged(Control&) override {}
    void areaDirty(Container&, const Rect&) override {}
    void paintNow(Container&, const Rect&) override {
        note(L"paint ");
        if (backend_.whenPainted)
            backend_.whenPainted(form_);
    }
    void formChanged() override {}
    void show() override { note(L"show "); }
    void hide() override { note(L"hide "); }
    void activate() override {}
    void takeFocus(Control&) override {}

private:
    void note(std::wstring what) { backend_.log.push_back(what.append(form_.name())); }

    Form& form_;
    HeadlessBackend& backend_;
};

} // namespace

std::unique_ptr<FormView> HeadlessBackend::makeView(Form& form) {
    return std::make_unique<HeadlessView>(form, *this);
}

Answer HeadlessBackend::showMessage(const Message& message) {
    messages.push_back(message);
    if (answers.empty())
        return message.buttons == MessageButtons::ok ? Answer::ok : Answer::cancel;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

void HeadlessBackend::wait(int milliseconds) {
    if (duringWait)
        duringWait(milliseconds);
    clock_.advance(milliseconds / 1000.0);
}

} // namespace klopfmeise
