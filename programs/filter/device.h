// The device, or the filter before it, that receives the job.
#ifndef PROGRAMS_FILTER_DEVICE_H_
#define PROGRAMS_FILTER_DEVICE_H_

#include <string>
#include <string_view>

#include "programs/filter/byte_sink.h"

namespace driver_feature::filter {

class Device : public ByteSink {
 public:
  // The descriptor stays the caller's.
  explicit Device(int descriptor);

  // Keeps some bytes back until flush(). When the job is cancelled the bytes
  // that wait are dropped; so is everything after a failure.
  void put(std::string_view bytes) override;
  void flush();

  // Writes the bytes, even when the job has been cancelled; but then waits a few
  // seconds at most for a device that accepts nothing.
  void putLast(std::string_view bytes);

  bool hasBegun() const { return hasBegun_; }  // The device has got a byte.
  bool hasFailed() const { return error_ != 0; }
  int error() const { return error_; }  // The error number of the failure.

 private:
  void writeOut(std::string_view bytes, bool isLast);

  int descriptor_;
  bool mayBlock_;  // Takes no more at once than it has room for.
  bool hasBegun_ = false;
  int error_ = 0;
  std::string waiting_;
};

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_DEVICE_H_
