#pragma once

#include <string>
#include <vector>

/// Sorts the elements lo to hi in place, both included, by their 16-bit code units: capitals stand before small
/// letters, and a text before a longer one that begins with it. Equal texts may change places.
/// @param lo, hi indexes of elements that exist
void QuickSort(std::vector<std::u16string>& items, int lo, int hi);
