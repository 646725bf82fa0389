#include "store/lektionsdatei.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace klopfmeise;

// A lesson file comes from a shared folder: whatever stands in it must give a stage or none.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const int stufe : {1, 12, -5}) {
        const Lektion lektion = lektionAus(bytes, stufe);
        const bool zahlGut = !lektion.Stufenzahl ||
                             (*lektion.Stufenzahl >= 1 && *lektion.Stufenzahl <= Lektion::höchsteStufenzahl);
        const bool textGut = !lektion.stufe || !lektion.stufe->Stufentext.empty();
        if (!zahlGut || !textGut)
            std::abort();
    }
    return 0;
}
