// A feature description on disk.
#ifndef HOST_DESCRIPTION_FILE_H_
#define HOST_DESCRIPTION_FILE_H_

#include <memory>
#include <string>

#include "XMLDocument.h"

namespace driver_feature {

class DescriptionFile {
 public:
  // Reads the file and finds its feature description: the root element or
  // the first child of the root that is named FeatureDescription. Null when
  // that fails; `problem` is then "FILE:LINE:COLUMN: error: ...", with 0 for
  // line and column when the file could not be read at all.
  static std::unique_ptr<DescriptionFile> read(const std::string& path, std::string& problem);

  const std::string& path() const { return path_; }

  // The feature-description element. It lives as long as this object.
  void* element() const { return element_; }

 private:
  DescriptionFile(const std::string& path, std::unique_ptr<XMLDocument> document, void* element);

  std::string path_;
  std::unique_ptr<XMLDocument> document_;
  void* element_;
};

}  // namespace driver_feature

#endif  // HOST_DESCRIPTION_FILE_H_
