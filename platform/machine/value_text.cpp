#include "platform/machine/value_text.h"

#include "platform/values/text.h"
#include "platform/values/utf8.h"
#include "platform/values/windows1252.h"

#include <algorithm>

namespace klopfmeise {

std::string valueBytes(std::wstring_view text) {
    if (std::ranges::all_of(text, [](wchar_t c) { return toWindows1252(c) >= 0; }))
        return toWindows1252(text);
    return std::string(utf8ByteOrderMark) + toUtf8(text);
}

std::wstring valueText(std::string_view bytes) {
    if (!bytes.starts_with(utf8ByteOrderMark))
        return fromWindows1252(bytes);
    return fromUtf8(bytes.substr(utf8ByteOrderMark.size()));
}

} // namespace klopfmeise
