#pragma once
// The program's one quick sort: two pointers and a direction flag, on
// 16-bit indices. The duplicate finder and the disk explorer both sort by it.
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/rt_error.h"

namespace wh {

// A table index as the 16-bit integer the sorts take; 6 (overflow) past 32767.
inline int16_t index16(double n) {
  if (n > 32767 || n < -32768) raise(rt_overflow);
  return static_cast<int16_t>(n);
}

// Sorts t[low..high] so that `less` never holds of an element and one to
// its right: descending for a "smaller" test. The pivot walks between the
// pointers; each swap turns the direction, (a, b) -> (-b, -a). Ties land
// where this algorithm puts them, which is part of what the user sees.
// Ranges left to do go on a stack instead of the call stack: an ordered
// table makes the recursion as deep as the table is long.
template <class T, class Less>
void quick_sort(int16_t low, int16_t high, std::vector<T>& t, Less less) {
  if (high >= static_cast<int>(t.size())) raise(rt_subscript);
  std::vector<std::pair<int16_t, int16_t>> todo{{low, high}};
  while (!todo.empty()) {
    auto [lo, hi] = todo.back();
    todo.pop_back();
    if (lo >= hi) continue;
    int16_t i = lo, j = hi;
    int a = 0, b = -1;
    while (i < j) {
      if (less(t[i], t[j])) {
        std::swap(t[i], t[j]);
        const int old_a = a;
        a = -b;
        b = -old_a;
      }
      i = static_cast<int16_t>(i + a);
      j = static_cast<int16_t>(j + b);
    }
    const int16_t right = index16(i + 1.0);
    const int16_t left = index16(i - 1.0);
    todo.emplace_back(right, hi);
    todo.emplace_back(lo, left);  // done first
  }
}

}  // namespace wh
