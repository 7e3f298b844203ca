// Images as PostScript of level 2.
#ifndef PROGRAMS_PRINTER_POSTSCRIPT_IMAGE_H_
#define PROGRAMS_PRINTER_POSTSCRIPT_IMAGE_H_

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

namespace driver_feature::printer {

// Where the bytes of a document go; it is asked once at the end whether they
// arrived.
class DocumentWriter final {
 public:
  explicit DocumentWriter(int descriptor) : descriptor_(descriptor) {}
  void put(std::string_view bytes);
  // Writes what waits. False when something could not be written.
  bool finish();

 private:
  int descriptor_;
  bool hasFailed_ = false;
  std::string waiting_;
};

// Bytes as the text that the filter ASCII85Decode reads, in lines.
class Ascii85 final {
 public:
  explicit Ascii85(DocumentWriter& writer) : writer_(writer) {}
  void put(std::string_view bytes);
  void finish();  // Ends the data.

 private:
  void putGroup(std::string_view group);

  DocumentWriter& writer_;
  std::string group_;
  std::string line_;
};

// Bytes as the filter RunLengthDecode reads them.
std::string runLengths(std::string_view bytes);
inline constexpr char kRunLengthEnd = '\x80';

struct ImageForm {
  unsigned width = 0;
  unsigned height = 0;
  unsigned bits = 8;        // Of each component.
  unsigned components = 1;  // 1 grey, 3 RGB, 4 CMYK.
  bool isInverted = false;  // The highest number means no light, or no ink.
  std::string decoder;      // "RunLengthDecode" or "DCTDecode".
};

// The operator that reads the image's data, which follow as Ascii85, into the unit
// square with the image's top at the top.
std::string imageOperator(const ImageForm& form);

// What comes before the first page and after the last one, and around a page of a
// size in points.
std::string documentBegin();
std::string pageBegin(int page, double width, double height);
std::string scaling(double width, double height);
std::string translation(double x, double y);
std::string pageEnd();
std::string documentEnd(int pages);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_POSTSCRIPT_IMAGE_H_
