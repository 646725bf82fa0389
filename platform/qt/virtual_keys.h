#pragma once

#include <vector>

class QKeyEvent;

namespace klopfmeise {

/// The Windows virtual-key codes that a key of a German keyboard is told as: one for most keys, the two of
/// control and alt for Alt Gr, none for keys that the forms never see.
std::vector<int> virtualKeys(const QKeyEvent& key);

/// The sign of an accent key as it stands alone; 0 for other keys.
wchar_t accentOf(const QKeyEvent& key);

} // namespace klopfmeise
