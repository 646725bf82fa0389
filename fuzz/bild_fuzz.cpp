#include "platform/qt/picture_file.h"

#include <QtGlobal>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace klopfmeise;

/// The toolkit remarks on every broken file.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return 0;
}

// A lesson picture comes from a shared folder: whatever stands in it, what is shown has the size of its place
// at the most, stretched and at its own size.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const QSize place(186, 95);
    for (const double zoom : {0.0, 1.0, 2.4}) {
        const QImage image = pictureIn(bytes, place, zoom);
        if (image.isNull())
            continue;
        if (image.width() > place.width() || image.height() > place.height() ||
            (zoom == 0 && image.size() != place))
            std::abort();
    }
    return 0;
}
