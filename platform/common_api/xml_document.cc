#include "XMLDocument.h"

#include <libxml/tree.h>

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <utility>

#include "xml_reader.h"

struct XMLDocument::Tree {
  driver_feature::TreePointer document;
};

namespace {

constexpr std::size_t kHighestSize = std::size_t{64} * 1024 * 1024;
constexpr const char* kTooLarge = "is larger than 64 MiB";

bool readFile(const std::string& path, std::string& text, XMLProblem& problem) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"),
                                                             &std::fclose);
  if (!file) {
    problem.text = std::string("cannot be opened: ") + std::strerror(errno);
    return false;
  }
  struct stat status {};
  if (fstat(fileno(file.get()), &status) == 0 && S_ISDIR(status.st_mode)) {
    problem.text = "is a directory";
    return false;
  }
  char buffer[65536];
  std::size_t count = 0;
  while ((count = std::fread(buffer, 1, sizeof buffer, file.get())) > 0) {
    text.append(buffer, count);
    if (text.size() <= kHighestSize) continue;
    problem.text = kTooLarge;
    return false;
  }
  if (std::ferror(file.get()) == 0) return true;
  problem.text = std::string("cannot be read: ") + std::strerror(errno);
  return false;
}

}  // namespace

XMLDocument::XMLDocument(std::unique_ptr<Tree> tree) : tree_(std::move(tree)) {}

XMLDocument::~XMLDocument() = default;

std::unique_ptr<XMLDocument> XMLDocument::parseFile(const std::string& path, XMLProblem& problem) {
  problem = {};
  std::string text;
  if (!readFile(path, text, problem)) return nullptr;
  return parseText(text, path, problem);
}

std::unique_ptr<XMLDocument> XMLDocument::parseText(const std::string& text,
                                                    const std::string& name, XMLProblem& problem) {
  problem = {};
  if (text.empty()) {
    problem = {1, 1, "is empty"};
    return nullptr;
  }
  if (text.size() > kHighestSize) {
    problem.text = kTooLarge;
    return nullptr;
  }
  auto tree = std::make_unique<Tree>();
  tree->document = driver_feature::readTree(text, name, problem);
  if (!tree->document) return nullptr;
  return std::unique_ptr<XMLDocument>(new XMLDocument(std::move(tree)));
}

void* XMLDocument::root() const {
  return xmlDocGetRootElement(tree_->document.get());
}

int XMLDocument::lineOf(void* element) {
  return element != nullptr ? driver_feature::notedLine(*static_cast<xmlNode*>(element)) : 0;
}
