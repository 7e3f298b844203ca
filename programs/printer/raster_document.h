// Documents of bitmaps: PWG raster and Apple raster (URF).
#ifndef PROGRAMS_PRINTER_RASTER_DOCUMENT_H_
#define PROGRAMS_PRINTER_RASTER_DOCUMENT_H_

#include "host/base/result.h"

namespace driver_feature::printer {

// Writes the pages of the raster that is read from `input` as PostScript. Problem:
// kMalformed for one that ends early, is too large or has colours that are not
// supported; kNotWritten.
host::Result<> writeRasterAsPostScript(int input, int output);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_RASTER_DOCUMENT_H_
