#pragma once

#include "platform/input/input_router.h"

namespace klopfmeise {

/// What the widget of a control makes of a key that no handler swallowed, as toolkits do it. True if it had a
/// use for it.
bool widgetTakes(Control& control, const Key& key, const std::wstring& text, InputRouter& router);

/// Inserts into a text box at the caret, as far as its bound lets it.
void insertInto(Control& control, const std::wstring& text);

} // namespace klopfmeise
