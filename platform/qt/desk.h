#pragma once

#include "platform/qt/input_queue.h"
#include "platform/qt/picture_cache.h"
#include "platform/qt/text_painter.h"

namespace klopfmeise {

class FormRuntime;
class Stage;

/// What the views of all forms share.
struct Desk {
    InputQueue queue;
    PictureCache pictures;
    TextPainter texts;
    FormRuntime* runtime = nullptr;
    Stage* stage = nullptr;
};

} // namespace klopfmeise
