// What two sequences of numbers have in common. Inside the library only.
#pragma once

#include <functional>
#include <vector>

// For each place of either sequence whether it is left out of what they have in common.
struct SequenceDifference {
  std::vector<char> left;
  std::vector<char> right;
};

// Few places are left out, the fewest possible where the sequences are alike. Memory grows with the
// lengths alone, and so does the time, times a bound: sequences with very many differences are not
// searched for the fewest.
//
// The method: E. W. Myers, "An O(ND) Difference Algorithm and Its Variations", Algorithmica 1
// (1986), in its linear-space form; the search for the middle of a path is given up after a number
// of steps, and goes on from the furthest place it has reached.
//
// stop: asked again and again; true: what was not compared until then is left out.
SequenceDifference DiffSequences(const std::vector<int>& left, const std::vector<int>& right,
                                 const std::function<bool()>& stop = {});
