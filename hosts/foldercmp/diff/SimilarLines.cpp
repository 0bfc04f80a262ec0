#include "foldercmp/diff/SimilarLines.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr size_t kMostPairs = 10'000;      // of lines in one difference
constexpr int kMostComparisons = 300'000;  // in all, which take some tenths of a second
constexpr size_t kMostCharacters = 300;    // of a line that are looked at
constexpr double kLeastSimilarity = 0.5;

// What a line is made of: its pairs of neighbouring characters without white space, sorted.
using Bigrams = std::vector<uint16_t>;

Bigrams BigramsOf(std::string_view line) {
  Bigrams bigrams;
  unsigned before = 0;
  for (const char character : line.substr(0, kMostCharacters)) {
    const unsigned byte = static_cast<unsigned char>(character);
    if (byte <= ' ') continue;
    if (before != 0) bigrams.push_back(static_cast<uint16_t>(before << 8 | byte));
    before = byte;
  }
  std::sort(bigrams.begin(), bigrams.end());
  return bigrams;
}

std::vector<Bigrams> BigramsOf(const std::vector<std::string_view>& lines) {
  std::vector<Bigrams> all;
  for (const std::string_view line : lines) all.push_back(BigramsOf(line));
  return all;
}

// Dice's coefficient: from 0, nothing in common, to 1.
double Similarity(const Bigrams& left, const Bigrams& right) {
  if (left.empty() || right.empty()) return 0;
  size_t common = 0;
  for (auto one = left.begin(), other = right.begin(); one != left.end() && other != right.end();) {
    if (*one == *other) {
      ++common;
      ++one;
      ++other;
    } else {
      *one < *other ? ++one : ++other;
    }
  }
  return 2.0 * static_cast<double>(common) / static_cast<double>(left.size() + right.size());
}

// The most similarity that lines from a place on can have in order, for every pair of places.
class BestFrom {
 public:
  BestFrom(size_t left, size_t right) : m_width(right + 1), m_best((left + 1) * m_width) {}
  double& At(size_t left, size_t right) { return m_best[left * m_width + right]; }

 private:
  size_t m_width;
  std::vector<double> m_best;
};

}  // namespace

std::vector<std::pair<int, int>> SimilarLines::PairsOf(const std::vector<std::string_view>& left,
                                                       const std::vector<std::string_view>& right) {
  std::vector<std::pair<int, int>> pairs;
  const size_t count = left.size() * right.size();
  if (count <= 1 || count > kMostPairs || m_comparisons > kMostComparisons) return pairs;
  m_comparisons += static_cast<int>(count);

  const std::vector<Bigrams> leftBigrams = BigramsOf(left), rightBigrams = BigramsOf(right);
  BestFrom best(left.size(), right.size()), similarity(left.size(), right.size());
  for (size_t i = left.size(); i-- > 0;) {
    for (size_t j = right.size(); j-- > 0;) {
      double& similar = similarity.At(i, j);
      similar = Similarity(leftBigrams[i], rightBigrams[j]);
      best.At(i, j) = std::max(best.At(i + 1, j), best.At(i, j + 1));
      if (similar >= kLeastSimilarity)
        best.At(i, j) = std::max(best.At(i, j), similar + best.At(i + 1, j + 1));
    }
  }
  for (size_t i = 0, j = 0; i < left.size() && j < right.size();) {
    const double here = best.At(i, j), similar = similarity.At(i, j);
    if (similar >= kLeastSimilarity && here == similar + best.At(i + 1, j + 1)) {
      pairs.emplace_back(static_cast<int>(i++), static_cast<int>(j++));
    } else {
      here == best.At(i + 1, j) ? ++i : ++j;
    }
  }
  return pairs;
}
