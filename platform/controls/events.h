#pragma once

#include <functional>
#include <vector>

namespace klopfmeise {

enum class MouseButton { left, middle, right };

/// A handler of a control; empty where the control has none.
using Handler = std::function<void()>;
using MouseHandler = std::function<void(MouseButton)>;

/// One key going down: the codes of Windows' virtual keys that it is told as. One for most keys, two for
/// Alt Gr, which a German keyboard tells as control and alt.
struct KeyDown {
    std::vector<int> codes;
};

/// A character on its way to a control or form. A handler can swallow it, so that the control does not get
/// it.
struct KeyPress {
    /// Character code in Windows-1252, 8 for backspace, 13 for Enter.
    int code = 0;
    /// The same as a character of the program's texts.
    wchar_t character = 0;
    bool swallowed = false;
};

/// Handlers of a control that takes keys.
struct KeyHandlers {
    std::function<void(const KeyDown&)> down = {};
    std::function<void(KeyPress&)> press = {};
    Handler up = {};

    explicit operator bool() const { return down || press || up; }
};

} // namespace klopfmeise
