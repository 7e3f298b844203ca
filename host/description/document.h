// An XML file with a feature description.
#ifndef HOST_DESCRIPTION_DOCUMENT_H_
#define HOST_DESCRIPTION_DOCUMENT_H_

#include <memory>
#include <string>

#include "XMLDocument.h"

#include "host/base/result.h"

namespace driver_feature::host {

// The path that means standard input.
inline constexpr const char* kStandardInput = "-";

class Document {
 public:
  // Reads the file, whatever kind of file it is; "-" is standard input. Problem:
  // kUnreadable.
  static Result<std::string> readText(const std::string& path);

  // The tree of an XML text that has been read from `path`. Problem: kMalformed at
  // the place in the XML.
  static Result<std::unique_ptr<XMLDocument>> parseTree(const std::string& path,
                                                        const std::string& text);

  // Finds the feature description in a text that has been read from `path`: the
  // root element, or the first child of the root that is named
  // FeatureDescription. Problems: kMalformed at the place in the XML;
  // kNoDescription at the root.
  static Result<Document> ofText(const std::string& path, std::string text);

  // Both.
  static Result<Document> read(const std::string& path);

  const std::string& path() const { return path_; }

  // The file's bytes, until they are dropped. Only findings need them.
  const std::string& text() const { return text_; }
  void dropText() { std::string().swap(text_); }

  void* root() const { return document_->root(); }

  // The feature-description element, for pParserInstance and the library. It
  // lives as long as this object.
  void* description() const { return description_; }

  // A second feature description, which is not read; null without one.
  void* secondDescription() const { return second_; }

 private:
  Document(std::string path, std::string text) : path_(std::move(path)), text_(std::move(text)) {}
  Result<> parse();
  bool findDescriptions();

  std::string path_;
  std::string text_;
  std::unique_ptr<XMLDocument> document_;
  void* description_ = nullptr;
  void* second_ = nullptr;
};

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_DOCUMENT_H_
