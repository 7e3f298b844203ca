// The sheet that a document is put on.
#ifndef PROGRAMS_PRINTER_PAPER_H_
#define PROGRAMS_PRINTER_PAPER_H_

namespace driver_feature::printer {

// In points; 0 when it is not known.
struct Paper {
  int width = 0;
  int height = 0;

  bool isKnown() const { return width > 0 && height > 0; }
};

inline constexpr Paper kUsualPaper{595, 842};  // A4.

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_PAPER_H_
