#include "host/description/document.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "host/description/start_tags.h"
#include "host/description/xml_fault.h"
#include "host/description/xml_element.h"
#include "host/description/text_encoding.h"

namespace driver_feature::host {

namespace {

constexpr const char* kElementName = "FeatureDescription";
constexpr std::size_t kHighestSize = std::size_t{64} * 1024 * 1024;  // As of XMLDocument.

Failure unreadable(const std::string& path, const std::string& reason) {
  return Failure(Problem{Problem::Kind::kUnreadable, "the file " + reason,
                         "give the path of a readable feature description", "", path});
}

// Standard input stays open.
using File = std::unique_ptr<std::FILE, void (*)(std::FILE*)>;

File openFile(const std::string& path) {
  if (path == kStandardInput) return {stdin, [](std::FILE*) {}};
  return {std::fopen(path.c_str(), "rbe"), [](std::FILE* file) { std::fclose(file); }};
}

}  // namespace

Result<std::string> Document::readText(const std::string& path) {
  const File file = openFile(path);
  if (!file) return unreadable(path, std::string("cannot be opened: ") + std::strerror(errno));
  struct stat status {};
  if (fstat(fileno(file.get()), &status) == 0 && S_ISDIR(status.st_mode)) {
    return unreadable(path, "is a directory");
  }
  std::string text;
  std::array<char, 65536> buffer;
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file.get())) {
    text.append(buffer.data(), count);
    if (text.size() > kHighestSize) return unreadable(path, "is larger than 64 MiB");
  }
  if (std::ferror(file.get()) == 0) return text;
  return unreadable(path, std::string("cannot be read: ") + std::strerror(errno));
}

Result<Document> Document::read(const std::string& path) {
  Result<std::string> text = readText(path);
  if (!text) return failureOf(text);
  return ofText(path, std::move(*text));
}

Result<Document> Document::ofText(const std::string& path, std::string text) {
  Document document(path, std::move(text));
  if (Result<> parsed = document.parse(); !parsed) return failureOf(parsed);
  return document;
}

Result<std::unique_ptr<XMLDocument>> Document::parseTree(const std::string& path,
                                                         const std::string& text) {
  XMLProblem problem;
  auto tree = XMLDocument::parseText(text, path, problem);
  if (tree) return tree;
  XmlFault fault = xmlFault(problem.text, {problem.line, problem.column},
                            decodeText(text, declaredEncoding(text)));
  return Failure(Problem{Problem::Kind::kMalformed, std::move(fault.text), std::move(fault.remedy),
                         "", path, fault.position});
}

Result<> Document::parse() {
  auto tree = parseTree(path_, text_);
  if (!tree) return failureOf(tree);
  document_ = std::move(*tree);
  if (findDescriptions()) return {};
  const auto tags = findStartTags(decodeText(text_, declaredEncoding(text_)));
  const Position position = tags.empty() ? Position{} : tags.front().position;
  return Failure(Problem{
      Problem::Kind::kNoDescription, std::string("there is no ") + kElementName + " element",
      "name the root <" + tagOf(root()) + "> or one of its children <" + kElementName + ">", "",
      path_, position});
}

bool Document::findDescriptions() {
  if (tagOf(root()) == kElementName) {
    description_ = root();
    return true;
  }
  forEachChild(root(), [this](void* child) {
    if (second_ != nullptr || tagOf(child) != kElementName) return;
    (description_ == nullptr ? description_ : second_) = child;
  });
  return description_ != nullptr;
}

}  // namespace driver_feature::host
