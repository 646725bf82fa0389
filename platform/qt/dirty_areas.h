#pragma once

#include <QRect>
#include <QRegion>

#include <vector>

namespace klopfmeise {

/// The areas of a widget that have to be painted anew. Thousands of them can be told within one handler, so
/// they are kept as a short list of rectangles that may cover more than was told.
class DirtyAreas {
public:
    void add(const QRect& area);
    bool empty() const { return areas_.empty(); }
    /// All areas; none are left afterwards.
    QRegion take();

private:
    std::vector<QRect> areas_;
};

} // namespace klopfmeise
