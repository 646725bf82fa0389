#pragma once

#include "platform/forms/timer.h"
#include "tests/probe.h"

#include <functional>
#include <map>
#include <utility>

namespace klopfmeise {

/// What happened to forms and controls, in order, and what is to follow from it.
class Diary {
public:
    void note(const std::string& event) {
        events_ += (events_.empty() ? "" : " ") + event;
        if (const auto found = on.find(event); found != on.end())
            std::function(found->second)();
    }
    Handler noting(const std::string& event) {
        return [this, event] { note(event); };
    }
    /// The events since the last call, with a blank between.
    std::string take() { return std::exchange(events_, {}); }
    /// What else happens at an event.
    std::map<std::string, std::function<void()>> on;

private:
    std::string events_;
};

/// A form that keeps the diary under its name; its timer stands.
class NotingForm : public Form {
public:
    NotingForm(FormRuntime& runtime, std::wstring_view name, FormLook look, Diary& book)
        : Form(runtime, name, std::move(look))
        , diary(book) {}

    void note(const std::string& event) {
        diary.note(std::string(name().begin(), name().end()) + "." + event);
    }
    void Form_Load() override { note("load"); }
    void Form_Activate() override { note("activate"); }
    void Form_Deactivate() override { note("deactivate"); }
    void Form_Unload() override { note("unload"); }
    void Form_Resize() override { note("resize"); }
    void Form_KeyDown(const KeyDown& key) override { note("down" + std::to_string(key.codes.front())); }
    void Form_KeyPress(KeyPress& key) override { note("press" + std::to_string(key.code)); }
    void Form_KeyUp() override { note("up"); }
    void Form_MouseMove() override { note("move"); }

    Diary& diary;
    Timer timer{*this, L"timer", {.tick = [this] { note("tick"); }}};
};

/// A runtime without the program's forms, on the headless backend or on another one.
struct Playground {
    explicit Playground(Backend* other = nullptr)
        : runtime(other ? *other : backend, {clock, random, sound, files, registry, shell}) {}
    template <class Made = NotingForm>
    void add(std::wstring_view name, const FormLook& look = {}) {
        runtime.add(name, [this, name, look] { return std::make_unique<Made>(runtime, name, look, diary); });
    }
    template <class Made = NotingForm>
    Made& form(std::wstring_view name) {
        return static_cast<Made&>(*runtime.loaded(name));
    }
    /// What happens when these forms are shown one behind the other.
    std::string shown(std::initializer_list<std::wstring_view> names) {
        for (const auto name : names)
            runtime.show(name);
        return diary.take();
    }
    std::wstring active() { return std::wstring(runtime.active() ? runtime.active()->name() : L""); }

    ManualClock clock;
    SeededRandom random;
    RecordedSound sound;
    PosixFiles files;
    MemoryRegistry registry;
    ScriptedShell shell;
    HeadlessBackend backend{clock};
    Diary diary;
    FormRuntime runtime;
    HeadlessUser user{runtime, clock};
};

} // namespace klopfmeise
