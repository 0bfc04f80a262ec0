#include "dircmp/ContentCompare.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "dircmp/ContentSide.h"
#include "dircmp/EqualPrefix.h"
#include "dircmp/LetterCase.h"

namespace {

using Result = ContentCompare::Result;

// The walk through two contents. Blocks that agree are passed at a stroke; only where they don't
// are single characters looked at.
class Comparing {
 public:
  Comparing(ContentSide& left, ContentSide& right, const CompareOptions& options,
            const LetterCase* letters, const ContentCompare::StopPoll& stop)
      : m_left(left),
        m_right(right),
        m_mode(options.whiteSpaceMode),
        m_letters(letters),
        m_stop(stop) {}

  Result Run() {
    while (true) {
      for (ContentSide* side : {&m_left, &m_right}) {
        if (!side->NeedsFill()) continue;
        if (m_stop && m_stop()) return Result::Stopped;
        if (!side->Fill()) return Result::Unreadable;
      }
      if (PassEqual()) continue;
      if (m_left.hasEnded() && m_right.hasEnded()) return Result::Equal;
      if (!PassSpaces() && !PassLetter()) return Result::Different;
    }
  }

 private:
  // Passes what agrees in both blocks: true when a block is used up by that.
  bool PassEqual() {
    const size_t size = std::min(m_left.left(), m_right.left());
    if (size == 0) return false;
    // The second byte of a character isn't a letter, so with those each pair is looked at.
    const bool foldsLetters = m_letters != nullptr && !m_letters->hasLeadBytes();
    const size_t equal = foldsLetters ? EqualLettersPrefix(m_left.next(), m_right.next(), size)
                                      : EqualPrefix(m_left.next(), m_right.next(), size);
    if (equal == 0) return false;
    m_isInRun = ContentSide::IsSpace(m_left.next()[equal - 1]);
    m_left.Advance(equal);
    m_right.Advance(equal);
    return equal == size;
  }

  // Passes white space that doesn't count: false when there is none here.
  bool PassSpaces() {
    if (m_mode == kWhiteSpaceExact) return false;
    if (m_mode == kWhiteSpaceRuns && !m_isInRun) {
      // A run is to begin on both sides, or to be all that one of them still has.
      const bool begins =
          (m_left.IsAtSpace() || m_left.hasEnded()) && (m_right.IsAtSpace() || m_right.hasEnded());
      if (!begins) return false;
      m_isInRun = true;
    }
    const bool passedLeft = m_left.SkipSpaces();
    const bool passedRight = m_right.SkipSpaces();
    return passedLeft || passedRight;
  }

  bool PassLetter() {
    if (m_letters == nullptr || m_left.left() == 0 || m_right.left() == 0) return false;
    if (m_letters->Lower(*m_left.next()) != m_letters->Lower(*m_right.next())) return false;
    if (m_letters->hasLeadBytes() && (m_left.IsAtTrailByte() || m_right.IsAtTrailByte())) {
      return false;
    }
    m_left.Advance(1);
    m_right.Advance(1);
    m_isInRun = false;
    return true;
  }

  ContentSide& m_left;
  ContentSide& m_right;
  const int m_mode;
  const LetterCase* m_letters;
  const ContentCompare::StopPoll& m_stop;
  bool m_isInRun = false;  // what was passed last is white space on both sides
};

// No exception leaves the library: none but failed allocations and those of the caller's own
// sources can arise.
template <class Work>
Result Guarded(Work work) {
  try {
    return work();
  } catch (const std::exception&) {
    return Result::Unreadable;
  }
}

}  // namespace

ContentCompare::ContentCompare(const CompareOptions& options, StopPoll stop)
    : m_options(options), m_stop(std::move(stop)) {}

ContentCompare::~ContentCompare() = default;

Result ContentCompare::Files(const char* left, const char* right) {
  return Guarded([&] { return CompareFiles(left, right); });
}

Result ContentCompare::Streams(ByteSource& left, ByteSource& right) {
  return Guarded([&] { return CompareStreams(left, right); });
}

Result ContentCompare::CompareFiles(const char* left, const char* right) {
  FileSource leftFile(left);
  if (!leftFile.isOpen()) return Result::Unreadable;
  FileSource rightFile(right);
  if (!rightFile.isOpen()) return Result::Unreadable;
  // Where no white space is passed over, every character stands against one.
  if (m_options.whiteSpaceMode == kWhiteSpaceExact && leftFile.size() != rightFile.size()) {
    return Result::Different;
  }
  return CompareStreams(leftFile, rightFile);
}

Result ContentCompare::CompareStreams(ByteSource& left, ByteSource& right) {
  if (m_leftBlock == nullptr) m_leftBlock.reset(new unsigned char[kBlockSize]);
  if (m_rightBlock == nullptr) m_rightBlock.reset(new unsigned char[kBlockSize]);
  if (m_options.ignoreCase && m_letters == nullptr) {
    m_letters = std::make_unique<LetterCase>(m_options.codePage);
  }
  ContentSide leftSide(left, m_leftBlock.get(), m_letters.get());
  ContentSide rightSide(right, m_rightBlock.get(), m_letters.get());
  return Comparing(leftSide, rightSide, m_options, m_letters.get(), m_stop).Run();
}
