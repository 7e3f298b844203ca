// Takes the PostScript out of an EPS file that some programs write: a header of
// binary numbers names the place of the PostScript, and that of a picture of it
// for screens.
#ifndef PROGRAMS_FILTER_EPS_FILE_H_
#define PROGRAMS_FILTER_EPS_FILE_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "programs/filter/byte_sink.h"

namespace driver_feature::filter {

class EpsFile : public ByteSink {
 public:
  // Gets the PostScript of such a file, and the bytes of any other as they are.
  // The sink must outlive this object.
  explicit EpsFile(ByteSink& postScript) : postScript_(postScript) {}

  void put(std::string_view bytes) override;

  // The file has ended.
  void finish();

  // Whether the file has ended before its PostScript.
  bool isCut() const { return hasEnded_ && count_ > 0; }

 private:
  void readHeader();

  ByteSink& postScript_;
  std::string held_;  // The beginning, as long as it may be such a header.
  bool isHeader_ = true;
  bool isEps_ = false;
  bool hasEnded_ = false;
  std::uint32_t skip_ = 0;   // Bytes before the PostScript.
  std::uint32_t count_ = 0;  // Bytes of PostScript to come.
};

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_EPS_FILE_H_
