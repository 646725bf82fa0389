#pragma once

#include "platform/qt/qt_backend.h"

namespace klopfmeise {

/// The one backend of the process.
QtBackend& backend();
/// Has the toolkit do all that is due.
void settle();

} // namespace klopfmeise
