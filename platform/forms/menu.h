#pragma once

#include "platform/controls/events.h"

#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

/// One entry of a menu bar: a click on it is heard by `click`, or it opens `items`.
struct MenuItem {
    /// The name in the code; a literal.
    std::wstring_view name;
    std::wstring caption;
    Handler click = {};
    std::vector<MenuItem> items = {};
};

/// The entry of this name, however deep; null if there is none.
const MenuItem* findItem(const std::vector<MenuItem>& items, std::wstring_view name);

} // namespace klopfmeise
