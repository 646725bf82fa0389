#pragma once

#include "platform/controls/drawn.h"
#include "screens/umgebung.h"

#include <utility>

namespace klopfmeise {

/// The look of a picture button: a click is heard and then calls `klick`.
inline PictureLook bildknopf(const Umgebung& umgebung, const wchar_t* bild, const wchar_t* tip,
                             Handler klick) {
    return {.picture = bild,
            .pointer = Pointer::hand,
            .toolTip = tip,
            .click = [umgebung, klick = std::move(klick)] {
                umgebung.klang(L"knopf.wav");
                klick();
            }};
}

} // namespace klopfmeise
