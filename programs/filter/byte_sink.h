// Where the bytes of a job go.
#ifndef PROGRAMS_FILTER_BYTE_SINK_H_
#define PROGRAMS_FILTER_BYTE_SINK_H_

#include <string_view>

namespace driver_feature::filter {

class ByteSink {
 public:
  // Takes the bytes; they are not needed afterwards.
  virtual void put(std::string_view bytes) = 0;

 protected:
  ~ByteSink() = default;
};

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_BYTE_SINK_H_
