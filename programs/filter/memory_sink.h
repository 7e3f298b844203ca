// Keeps the bytes that it gets, for tests.
#ifndef PROGRAMS_FILTER_MEMORY_SINK_H_
#define PROGRAMS_FILTER_MEMORY_SINK_H_

#include <string>
#include <string_view>

#include "programs/filter/byte_sink.h"

namespace driver_feature::filter {

class MemorySink : public ByteSink {
 public:
  void put(std::string_view bytes) override { text += bytes; }
  std::string text;
};

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_MEMORY_SINK_H_
