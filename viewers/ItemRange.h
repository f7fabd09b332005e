// A range of items in a list.
#pragma once

namespace gallery {

/// Both ends inclusive; -1 and -1: none.
struct ItemRange {
    int first = -1;
    int last = -1;

    [[nodiscard]] bool IsNone() const { return first < 0 || last < first; }
    [[nodiscard]] int Count() const { return IsNone() ? 0 : last - first + 1; }
    [[nodiscard]] bool Contains(int index) const {
        return !IsNone() && index >= first && index <= last;
    }
    bool operator==(const ItemRange&) const = default;
};

} // namespace gallery
