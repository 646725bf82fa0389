#include "platform/forms/menu.h"

namespace klopfmeise {

const MenuItem* findItem(const std::vector<MenuItem>& items, std::wstring_view name) {
    for (const MenuItem& item : items) {
        if (item.name == name)
            return &item;
        if (const MenuItem* inner = findItem(item.items, name))
            return inner;
    }
    return nullptr;
}

} // namespace klopfmeise
