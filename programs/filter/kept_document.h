// The document of a job, read as a whole before it is printed.
#ifndef PROGRAMS_FILTER_KEPT_DOCUMENT_H_
#define PROGRAMS_FILTER_KEPT_DOCUMENT_H_

#include <cstdint>
#include <string>

#include "host/base/result.h"

namespace driver_feature::filter {

class KeptDocument {
 public:
  KeptDocument() = default;
  ~KeptDocument();
  KeptDocument(const KeptDocument&) = delete;
  KeptDocument& operator=(const KeptDocument&) = delete;

  // Reads the job from its file, or from standard input when the name is empty,
  // and keeps its document: what remains without the parts in front of it and
  // after it. The job can be read once more afterwards, from the same place.
  // Returns why that failed; a job that was cancelled is not a failure.
  host::Result<> read(const std::string& file);

  // The document as an open file, at its beginning.
  int descriptor() const { return descriptor_; }

  std::uint64_t size() const;

  // Whether the job is one PostScript document and nothing else.
  bool isDocument() const { return isDocument_; }

  // Whether its comments mark its pages, and there are any.
  bool hasPages() const { return hasPages_; }

  // Whether it has such comments at all.
  bool isStructured() const { return isStructured_; }

 private:
  int descriptor_ = -1;
  bool isDocument_ = false;
  bool hasPages_ = false;
  bool isStructured_ = false;
};

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_KEPT_DOCUMENT_H_
