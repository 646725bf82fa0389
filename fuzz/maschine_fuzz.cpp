#include "platform/machine/reg_text.h"
#include "platform/machine/value_text.h"
#include "platform/values/text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace klopfmeise;

namespace {

void verlangt(bool was) {
    if (!was)
        std::abort();
}

using Values = std::map<std::wstring, Registry::Value>;

bool same(const Values& a, const Values& b) {
    return std::ranges::equal(a, b, [](const auto& x, const auto& y) {
        return x.first == y.first && x.second.type == y.second.type && x.second.bytes == y.second.bytes;
    });
}

} // namespace

// The machine's file is laid by hand, in any editor and encoding: what is read stays byte for byte, and what
// is set comes back and leaves every other value as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    const std::wstring key = L"Software\\Klopfmeise";
    RegText text(bytes);
    verlangt(text.bytes() == bytes);
    const Values other = text.values(L"Software\\Other");
    for (const auto& [name, value] : text.values(key))
        verlangt(valueText(value.bytes).size() <= value.bytes.size());
    if (!text.hasKey(key))
        text.addKey(key);
    verlangt(text.hasKey(key));

    Values wanted = text.values(key);
    const Registry::Value code{Registry::Type::string, "1234"};
    const Registry::Value folder{Registry::Type::string, valueBytes(L"/srv/шк/Süd/")};
    const Registry::Value number{Registry::Type::dword, std::string("\7\0\0\x80", 4)};
    for (const auto& [name, value] : {std::pair(L"Pin", code), {L"Datenablage", folder}, {L"N\"", number}}) {
        text.set(key, name, value);
        wanted.insert_or_assign(upper(name), value);
        verlangt(same(text.values(key), wanted));
    }
    const RegText again(text.bytes());
    verlangt(again.bytes() == text.bytes() && again.hasKey(key) && same(again.values(key), wanted));
    verlangt(same(again.values(L"Software\\Other"), other));
    return 0;
}
