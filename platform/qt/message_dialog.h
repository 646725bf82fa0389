#pragma once

#include "platform/forms/backend.h"

class QWidget;

namespace klopfmeise {

/// Shows a message box and waits for its answer. `parent` may be null. `zoom`: logical pixels to the unzoomed
/// pixel. Escape and the close box answer "cancel" where there is such a button, else "ok".
Answer askUser(const Message& message, QWidget* parent, double zoom);

} // namespace klopfmeise
