// A photograph as a page.
#ifndef PROGRAMS_PRINTER_JPEG_DOCUMENT_H_
#define PROGRAMS_PRINTER_JPEG_DOCUMENT_H_

#include "host/base/result.h"
#include "programs/printer/paper.h"

namespace driver_feature::printer {

// Writes the JPEG file as a page of PostScript, as large as the paper allows with
// a margin, turned if that makes it larger. The printer decodes the picture.
// Problem: kMalformed for one whose size cannot be read; kNotWritten.
host::Result<> writeJpegAsPostScript(int input, int output, const Paper& paper);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_JPEG_DOCUMENT_H_
