// Takes off what libcups has put around a job: its front in job-control
// language, and its end.
//
// Filters that convert documents write both from the queue's PPD. The front
// need not look like PJL: its lines are whatever the PPD has, some begin like
// PostScript, and the last of them may have no line end in front of it. It is
// known by the PPD's own beginning, and by the PPD's change to PostScript right
// in front of the document.
#ifndef PROGRAMS_FILTER_LIBCUPS_FRAME_H_
#define PROGRAMS_FILTER_LIBCUPS_FRAME_H_

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "programs/filter/byte_sink.h"

namespace driver_feature::filter {

// What libcups writes around a job of the queue.
struct LibcupsFrame {
  std::string exitServer;      // In front of all.
  std::string begin;           // How the front begins; empty when there is none.
  std::string toPostScript;    // How it ends.
  bool hasHeaderLike = false;  // Lines of the front may begin with %!.
  std::string end;             // After the document.
  bool replacesEnd = false;    // The end is written again: it may go even without a front.
};

// The most bytes that a front has.
inline constexpr std::size_t kLongestFront = std::size_t{1} << 20;

class LibcupsFrameCutter : public ByteSink {
 public:
  // The document's bytes go to the sink, which must outlive this object.
  // `tellFront` is called before the first of them when a front was there.
  LibcupsFrameCutter(LibcupsFrame frame, ByteSink& document, std::function<void()> tellFront)
      : frame_(std::move(frame)), document_(document), tellFront_(std::move(tellFront)) {}

  void put(std::string_view bytes) override;

  // The job has ended.
  void finish();

 private:
  // How many of the job's first bytes, all of which are held, belong to the
  // front; npos while more of them are needed.
  std::size_t sizeOfFront(bool isWhole) const;
  void leaveFront(std::size_t size);
  void putDocument(std::string_view bytes);

  LibcupsFrame frame_;
  ByteSink& document_;
  std::function<void()> tellFront_;
  bool isInFront_ = true;
  bool hasFront_ = false;
  std::string held_;  // In the front, all; later what may be the end.
};

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_LIBCUPS_FRAME_H_
