// What the stream has sent, as whole lines that wait for the check cycle. A line that was cut on its way is
// put together again, and lines are brought to the form that the spot parser reads.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brelwin {

struct LineLimits {
  std::size_t LongestLine = std::size_t{64} * 1024;         // bytes, without its line end
  std::size_t MostWaiting = std::size_t{16} * 1024 * 1024;  // bytes; beyond them the buffer is full
};

class LineBuffer {
 public:
  // What became of some bytes.
  struct Intake {
    std::int64_t WholeLines = 0;    // that wait now and say something
    std::size_t Bytes = 0;          // of what waits by them, line ends included
    std::int64_t DroppedLines = 0;  // that were found to be too long
  };

  explicit LineBuffer(LineLimits limits = {}) : limits_(limits) {}

  // Adds bytes as they came. A line ends with LF; it waits with its line end as it was sent, as UTF-8 (a line
  // that is not UTF-8 is taken as Windows-1252), and with two blanks after every "-#:": skimmers with long
  // callsigns leave fewer. A line that is too long is dropped whole.
  Intake Add(std::string_view bytes);

  bool HasLines() const { return !waiting_.empty(); }

  // Whether so much waits that no more should be added before it is taken. What is added all the same is
  // kept.
  bool IsFull() const { return waiting_.size() >= limits_.MostWaiting; }

  // The last bytes of what waits; all of it when that is less. It lives until the buffer is changed.
  std::string_view Newest(std::size_t bytes) const;

  // The whole lines that wait, oldest first.
  std::string TakeLines();

  // Forgets the beginning of a line whose rest will not come.
  void DropRest();

  // Forgets everything.
  void Clear();

 private:
  void AddToRest(std::string_view piece, Intake& intake);
  void TakeRest(Intake& intake);

  LineLimits limits_;
  std::string rest_;            // the beginning of a line that has not ended
  bool restIsTooLong_ = false;  // the line goes on, but is dropped
  std::string waiting_;
};

// Appends the line with at least two blanks after every "-#:", the end of a skimmer's callsign.
void AppendWithSpacedSkimmer(std::string& text, std::string_view line);

}  // namespace brelwin
