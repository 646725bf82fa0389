#pragma once

#include <QString>

#include <vector>

class QKeyEvent;

namespace klopfmeise {

/// The Windows virtual-key codes that a key of a German keyboard is told as: one for most keys, the two of
/// control and alt for Alt Gr, none for keys that the forms never see.
std::vector<int> virtualKeys(const QKeyEvent& key);

/// Composes the accent keys of the keyboard with the character typed behind them, as one stream for all
/// controls. This takes the place of the toolkit's input methods, which depend on the locale and would tell
/// composed characters past the queue of the keys.
class DeadKeys {
public:
    /// The text that a key press types: its own, a composed one, or none while an accent waits. An accent
    /// that does not go with the character is typed before it; behind itself or a blank it stands alone.
    QString typed(int key, const QString& text);
    void reset() { accent_ = 0; }

private:
    char16_t accent_ = 0;
};

} // namespace klopfmeise
