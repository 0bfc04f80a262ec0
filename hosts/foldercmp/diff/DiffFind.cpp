#include "foldercmp/diff/DiffFind.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "foldercmp/diff/LineColumns.h"

namespace {

using Bytes = std::pair<int, int>;

class Searcher {
 public:
  explicit Searcher(const FindQuery& query)
      : m_query(query), m_text(query.matchCase ? query.text : LowerUtf8(query.text)) {}

  // In a line, the first place from a byte on, or the last one before it.
  std::optional<Bytes> First(std::string_view line, int from) const {
    return Find(line, [&](std::string_view text, const auto& lowerPlace) {
      return text.find(m_text, static_cast<size_t>(lowerPlace(from)));
    });
  }
  std::optional<Bytes> Last(std::string_view line, int before) const {
    if (before == 0) return {};
    return Find(line, [&](std::string_view text, const auto& lowerPlace) {
      const int place = lowerPlace(before);
      return place == 0 ? text.npos : text.rfind(m_text, static_cast<size_t>(place) - 1);
    });
  }

 private:
  template <class FindIn>
  std::optional<Bytes> Find(std::string_view line, FindIn findIn) const {
    const std::string lower = m_query.matchCase ? std::string() : LowerUtf8(line);
    const std::string_view text = m_query.matchCase ? line : lower;
    // Few letters have a lower case of another length.
    const bool isSameLength = text.size() == line.size();
    const size_t found =
        findIn(text, [&](int byte) { return isSameLength ? byte : LowerPlaceOf(line, byte); });
    if (found == text.npos) return {};
    const int begin = static_cast<int>(found), end = begin + static_cast<int>(m_text.size());
    if (isSameLength) return Bytes(begin, end);
    return Bytes(PlaceOfLower(line, begin), PlaceOfLower(line, end));
  }

  // Between the bytes of a line and those of its lower case.
  template <class Stop>
  static Bytes Walk(std::string_view line, Stop stop) {
    LineColumns place(line, 1);
    int lower = 0;
    while (!place.isAtEnd() && !stop(place.byte(), lower)) {
      const int begin = place.byte();
      place.Next();
      const int size = place.byte() - begin;
      lower += static_cast<int>(
          LowerUtf8(line.substr(static_cast<size_t>(begin), static_cast<size_t>(size))).size());
    }
    return {place.byte(), lower};
  }
  static int LowerPlaceOf(std::string_view line, int byte) {
    return Walk(line, [&](int place, int) { return place >= byte; }).second;
  }
  static int PlaceOfLower(std::string_view line, int lower) {
    return Walk(line, [&](int, int place) { return place >= lower; }).first;
  }

  const FindQuery& m_query;
  std::string m_text;
};

}  // namespace

std::optional<FoundText> FindText(const DiffDocument& document, const FindQuery& query,
                                  const FindPlace& start) {
  const int cells = 2 * document.rowCount();
  if (cells == 0 || query.text.empty()) return {};
  const Searcher searcher(query);
  const int first =
      2 * std::clamp(start.row, 0, document.rowCount() - 1) + (start.side == DiffSide::Right);
  // The start's own line comes twice: what is behind the start, and at the end the whole line.
  for (int step = 0; step <= cells; ++step) {
    const int distance = query.forward ? step : -step;
    const int cell = (first + distance + cells) % cells;
    const DiffSide side = cell % 2 == 0 ? DiffSide::Left : DiffSide::Right;
    if (query.side && side != *query.side) continue;
    const int line = document.RowAt(cell / 2).LineOf(side);
    if (line < 0) continue;
    const std::string_view text = document.Line(side, line).text;
    const auto found = query.forward
                           ? searcher.First(text, step == 0 ? start.begin + 1 : 0)
                           : searcher.Last(text, step == 0 ? std::max(start.begin, 0)
                                                           : static_cast<int>(text.size()));
    if (!found) continue;
    const int unwrapped = first + distance;
    const bool isWrapped = step == cells || unwrapped < 0 || unwrapped >= cells;
    return FoundText{side, cell / 2, found->first, found->second, isWrapped};
  }
  return {};
}
