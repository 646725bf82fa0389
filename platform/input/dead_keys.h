#pragma once

#include <string>
#include <string_view>

namespace klopfmeise {

/// Composes the accent keys of the keyboard with the character typed behind them, as one stream for all
/// controls. This takes the place of a toolkit's input methods, which depend on the locale and would tell
/// composed characters past the line of the keys.
class DeadKeys {
public:
    /// An accent key was pressed; `accent` is its sign as it stands alone (´ ` ^ ~ ¨ ¸ ° ˇ). Returns what
    /// that types: nothing at first, the sign if the same accent waits, a waiting other one if it is pushed
    /// out.
    std::wstring accent(wchar_t sign);
    /// Any other key was pressed that types `text`, or nothing. Returns what comes of it with a waiting
    /// accent: one character where the two go together, the accent before the text where they do not, the
    /// accent alone with a blank.
    std::wstring typed(std::wstring_view text);
    void reset() { waiting_ = 0; }

private:
    wchar_t waiting_ = 0;
};

} // namespace klopfmeise
