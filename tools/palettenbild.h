#pragma once

#include <QImage>

namespace klopfmeise {

/// The opaque picture with a palette of at most 256 colours chosen for it (median cut). The result depends
/// on the pixels alone, so the same picture always gives the same bytes.
QImage alsPalettenbild(const QImage& bild);

} // namespace klopfmeise
