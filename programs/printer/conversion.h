// Documents of every type that is taken, as PostScript.
#ifndef PROGRAMS_PRINTER_CONVERSION_H_
#define PROGRAMS_PRINTER_CONVERSION_H_

#include <span>
#include <string>
#include <string_view>

#include "host/base/result.h"
#include "programs/printer/paper.h"

namespace driver_feature::printer {

// The types of documents that are accepted; the first one means that the first
// bytes of a document say its type.
std::span<const char* const> documentFormats();

bool isDocumentFormat(std::string_view format);

// The type that the first bytes of a document say; empty when they say none.
std::string formatOf(std::string_view beginning);

// Writes the document as PostScript into the file `output`. Problem: kMalformed
// for a document that cannot be converted, kNotLoaded without the program for it,
// kNotWritten. Called in the process of a job: starts programs and waits. What takes
// more than an hour of a processor, or 8 GiB, is ended by the system.
host::Result<> convert(const std::string& format, const std::string& document, int output,
                       const Paper& paper);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_CONVERSION_H_
