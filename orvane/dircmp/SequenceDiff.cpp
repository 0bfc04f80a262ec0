#include "dircmp/SequenceDiff.h"

#include <algorithm>
#include <climits>

namespace {

// Differences on the way to the middle after which the search for it is given up.
constexpr int kMostSteps = 512;

// The numbers of a sequence that the other one has, too, and their places in it.
struct Common {
  std::vector<int> numbers;
  std::vector<int> places;
};

Common WhatIsIn(const std::vector<int>& sequence, const std::vector<int>& other) {
  int largest = -1;
  for (const int number : other) largest = std::max(largest, number);
  std::vector<char> isInOther(static_cast<size_t>(largest) + 1);
  for (const int number : other) isInOther[static_cast<size_t>(number)] = 1;
  Common common;
  for (size_t i = 0; i < sequence.size(); ++i) {
    if (sequence[i] > largest || !isInOther[static_cast<size_t>(sequence[i])]) continue;
    common.numbers.push_back(sequence[i]);
    common.places.push_back(static_cast<int>(i));
  }
  return common;
}

// A part of the left sequence and a part of the right one that are still to be compared.
struct Box {
  int left, leftEnd, right, rightEnd;
};

struct Place {
  int left, right;
};

class Differ {
 public:
  Differ(const std::vector<int>& left, const std::vector<int>& right)
      : m_left(left),
        m_right(right),
        m_origin(static_cast<int>(right.size()) + 1),
        m_forward(left.size() + right.size() + 3),
        m_backward(m_forward.size()) {}

  // Calls keep with the places of each pair in common, in any order.
  template <class Keep>
  void Run(Keep keep, const std::function<bool()>& stop) {
    std::vector<Box> boxes = {
        {0, static_cast<int>(m_left.size()), 0, static_cast<int>(m_right.size())}};
    while (!boxes.empty() && !(stop && stop())) {
      Box box = boxes.back();
      boxes.pop_back();
      while (box.left < box.leftEnd && box.right < box.rightEnd &&
             m_left[box.left] == m_right[box.right]) {
        keep(box.left++, box.right++);
      }
      while (box.left < box.leftEnd && box.right < box.rightEnd &&
             m_left[box.leftEnd - 1] == m_right[box.rightEnd - 1]) {
        keep(--box.leftEnd, --box.rightEnd);
      }
      if (box.left == box.leftEnd || box.right == box.rightEnd) continue;
      const Place middle = FindMiddle(box);
      boxes.push_back({box.left, middle.left, box.right, middle.right});
      boxes.push_back({middle.left, box.leftEnd, middle.right, box.rightEnd});
    }
  }

 private:
  // Of the diagonal left - right, the furthest place in the left sequence that is reached.
  int& Forward(int diagonal) { return m_forward[diagonal + m_origin]; }
  int& Backward(int diagonal) { return m_backward[diagonal + m_origin]; }

  // The diagonals that a search has reached, every other one of them at a time.
  struct Diagonals {
    int low, high;
    bool Has(int diagonal) const { return low <= diagonal && diagonal <= high; }
  };

  // A place on a path through the box, with differences before and after it.
  Place FindMiddle(const Box& box) {
    const int lowest = box.left - box.rightEnd, highest = box.leftEnd - box.right;
    const int start = box.left - box.right, end = box.leftEnd - box.rightEnd;
    const bool meetsGoingForward = (start - end) % 2 != 0;
    Diagonals forward = {start, start}, backward = {end, end};
    Forward(start) = box.left;
    Backward(end) = box.leftEnd;
    for (int steps = 1;; ++steps) {
      Widen(forward, lowest, highest, [this](int diagonal) { Forward(diagonal) = -1; });
      for (int diagonal = forward.high; diagonal >= forward.low; diagonal -= 2) {
        const int left = StepForward(box, diagonal);
        if (meetsGoingForward && backward.Has(diagonal) && Backward(diagonal) <= left) {
          return {left, left - diagonal};
        }
      }
      Widen(backward, lowest, highest, [this](int diagonal) { Backward(diagonal) = INT_MAX; });
      for (int diagonal = backward.high; diagonal >= backward.low; diagonal -= 2) {
        const int left = StepBackward(box, diagonal);
        if (!meetsGoingForward && forward.Has(diagonal) && left <= Forward(diagonal)) {
          return {left, left - diagonal};
        }
      }
      if (steps >= kMostSteps) return FurthestPlace(box, forward, backward);
    }
  }

  // One diagonal more on either side, or one less where the box ends; what lies beyond is never the
  // better way.
  template <class Block>
  static void Widen(Diagonals& reached, int lowest, int highest, Block block) {
    if (reached.low > lowest) {
      block(--reached.low - 1);
    } else {
      ++reached.low;
    }
    if (reached.high < highest) {
      block(++reached.high + 1);
    } else {
      --reached.high;
    }
  }

  int StepForward(const Box& box, int diagonal) {
    int left = std::max(Forward(diagonal - 1) + 1, Forward(diagonal + 1));
    while (left < box.leftEnd && left - diagonal < box.rightEnd &&
           m_left[left] == m_right[left - diagonal]) {
      ++left;
    }
    return Forward(diagonal) = left;
  }

  int StepBackward(const Box& box, int diagonal) {
    int left = std::min(Backward(diagonal - 1), Backward(diagonal + 1) - 1);
    while (left > box.left && left - diagonal > box.right &&
           m_left[left - 1] == m_right[left - diagonal - 1]) {
      --left;
    }
    return Backward(diagonal) = left;
  }

  // Where one of the two searches has come furthest.
  Place FurthestPlace(const Box& box, const Diagonals& forward, const Diagonals& backward) {
    Place best = {box.left, box.right};
    int mostDone = -1;
    const auto offer = [&](int left, int right, bool goesForward) {
      const int done = goesForward ? left - box.left + right - box.right
                                   : box.leftEnd - left + box.rightEnd - right;
      if (done <= mostDone) return;
      mostDone = done;
      best = {left, right};
    };
    for (int diagonal = forward.high; diagonal >= forward.low; diagonal -= 2) {
      const int left = std::min({Forward(diagonal), box.leftEnd, box.rightEnd + diagonal});
      offer(left, left - diagonal, true);
    }
    for (int diagonal = backward.high; diagonal >= backward.low; diagonal -= 2) {
      const int left = std::max({Backward(diagonal), box.left, box.right + diagonal});
      offer(left, left - diagonal, false);
    }
    return best;
  }

  const std::vector<int>& m_left;
  const std::vector<int>& m_right;
  const int m_origin;  // where the diagonal 0 stands in the lists
  std::vector<int> m_forward;
  std::vector<int> m_backward;
};

}  // namespace

SequenceDifference DiffSequences(const std::vector<int>& left, const std::vector<int>& right,
                                 const std::function<bool()>& stop) {
  SequenceDifference difference = {std::vector<char>(left.size(), 1),
                                   std::vector<char>(right.size(), 1)};
  // What one sequence has alone can't be in common, and would only make the search longer.
  const Common leftCommon = WhatIsIn(left, right), rightCommon = WhatIsIn(right, left);
  const auto keep = [&](int leftPlace, int rightPlace) {
    difference.left[static_cast<size_t>(leftCommon.places[leftPlace])] = 0;
    difference.right[static_cast<size_t>(rightCommon.places[rightPlace])] = 0;
  };
  Differ(leftCommon.numbers, rightCommon.numbers).Run(keep, stop);
  return difference;
}
