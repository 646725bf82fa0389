#pragma once

#include "platform/input/input_router.h"
#include "platform/qt/input_queue.h"
#include "platform/qt/picture_cache.h"
#include "platform/qt/text_painter.h"

#include <optional>

namespace klopfmeise {

class FormRuntime;
class Stage;

/// What the views of all forms share.
struct Desk {
    InputQueue queue;
    PictureCache pictures;
    TextPainter texts;
    FormRuntime* runtime = nullptr;
    /// There as soon as the runtime is.
    std::optional<InputRouter> router;
    Stage* stage = nullptr;
};

} // namespace klopfmeise
