#pragma once

#include "platform/controls/control.h"

#include <concepts>
#include <memory>
#include <utility>
#include <vector>

namespace klopfmeise {

/// An indexed array of like controls, `lblPosV(3)`. Elements above 0 can be made at run time as copies of
/// element 0 and removed again.
template <class T>
class ControlArray {
public:
    /// Makes the elements `first` to `last`; `place(i)` gives where element i stands, `look(i)` how it looks.
    template <std::invocable<int> Place, std::invocable<int> Look>
    ControlArray(Container& parent, std::wstring_view name, int first, int last, Place place, Look look)
        : first_(first) {
        for (int i = first; i <= last; ++i)
            elements_.push_back(std::make_unique<T>(parent, name, place(i), look(i), i));
    }
    /// As above, with one look for all.
    template <std::invocable<int> Place>
    ControlArray(Container& parent, std::wstring_view name, int first, int last, Place place,
                 typename T::Look look = {})
        : ControlArray(parent, name, first, last, place, [&look](int) { return look; }) {}
    ~ControlArray() { removeFrom(first_); }
    ControlArray(const ControlArray&) = delete;
    ControlArray& operator=(const ControlArray&) = delete;

    T& operator()(int index) const { return *elements_[static_cast<std::size_t>(index - first_)]; }
    int first() const { return first_; }
    int last() const { return first_ + static_cast<int>(elements_.size()) - 1; }

    /// Makes the next element, hidden, as a copy of the first one. Only drawn controls can be made at run
    /// time.
    T& load() {
        elements_.push_back(std::make_unique<T>(*elements_.front(), last() + 1));
        return *elements_.back();
    }
    /// Removes the elements from `index` up.
    void removeFrom(int index) {
        while (!elements_.empty() && last() >= index)
            elements_.pop_back();
    }

private:
    int first_;
    std::vector<std::unique_ptr<T>> elements_;
};

} // namespace klopfmeise
