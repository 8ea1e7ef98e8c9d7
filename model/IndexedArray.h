#pragma once

#include <array>
#include <cstddef>

namespace plotvane {

// One value for each number from 0 to N-1: of a slot, a trace, a channel or a row. The numbers are ints, as
// everywhere else; one outside the bounds throws std::out_of_range.
template <typename T, int N>
struct IndexedArray {
    using value_type = T;
    using iterator = typename std::array<T, N>::iterator;
    using const_iterator = typename std::array<T, N>::const_iterator;

    constexpr T& operator[](int index) { return all.at(static_cast<std::size_t>(index)); }
    constexpr const T& operator[](int index) const { return all.at(static_cast<std::size_t>(index)); }

    constexpr iterator begin() { return all.begin(); }
    constexpr iterator end() { return all.end(); }
    constexpr const_iterator begin() const { return all.begin(); }
    constexpr const_iterator end() const { return all.end(); }

    static constexpr int Count() { return N; }
    static constexpr std::size_t size() { return N; }
    constexpr T& back() { return all.back(); }
    void fill(const T& value) { all.fill(value); }

    bool operator==(const IndexedArray&) const = default;

    std::array<T, N> all;
};

}  // namespace plotvane
