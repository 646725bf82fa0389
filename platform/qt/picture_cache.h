#pragma once

#include "platform/controls/drawn.h"

#include <QImage>
#include <QSize>

#include <compare>
#include <future>
#include <map>
#include <memory>
#include <string>

namespace klopfmeise {

class Files;

using Image = std::shared_ptr<const QImage>;

/// The program's own drawings, rendered once for each size in which they are on the screen. Those that no
/// view holds any longer are dropped, but for a few of the latest, as a page often changes between the same
/// ones.
class PictureCache {
public:
    /// The drawing ":/bilder/<name>.svg" at `size` device pixels; null if there is none or it is broken.
    Image drawing(const std::wstring& name, const QSize& size);
    /// Begins to render a drawing that will be asked for soon, on a thread of its own, so that a page's
    /// background is ready when its controls are.
    void prepare(const std::wstring& name, const QSize& size);
    void trim();

private:
    struct Key {
        std::wstring name;
        int width = 0;
        int height = 0;
        friend auto operator<=>(const Key&, const Key&) = default;
    };
    struct Entry {
        Image image;
        unsigned lastUse = 0;
        /// The picture under way; taken by the first use.
        std::future<Image> pending = {};
    };

    std::map<Key, Entry> entries_;
    unsigned uses_ = 0;
};

/// The pictures that one form shows, one a control.
class HeldPictures {
public:
    explicit HeldPictures(PictureCache& cache)
        : cache_(cache) {}

    /// `owner` is the control or form that shows it; `revision` counts how often a file was set. A file with
    /// an `ownSizeZoom` above 0 is not stretched to `size`: its pixels are unzoomed ones at that zoom.
    Image picture(const void* owner, const PictureSource& source, int revision, const QSize& size,
                  double ownSizeZoom, Files& files);
    void forget(const void* owner) { held_.erase(owner); }
    void clear() {
        held_.clear();
        cache_.trim();
    }

private:
    struct Held {
        PictureSource source;
        int revision = 0;
        QSize size;
        double ownSizeZoom = 0;
        Image image;
    };

    PictureCache& cache_;
    std::map<const void*, Held> held_;
};

} // namespace klopfmeise
