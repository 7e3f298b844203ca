#include "host/description_file.h"

#include <utility>

#include "XMLParser.h"

namespace driver_feature {

namespace {

constexpr const char* kElementName = "FeatureDescription";

std::string tagOf(void* element) {
  std::string tag;
  pParserInstance->tagName(element, tag);
  return tag;
}

void* findDescription(void* root) {
  if (tagOf(root) == kElementName) return root;
  void* child = pParserInstance->firstChild(root);
  while (child != nullptr && tagOf(child) != kElementName) {
    child = pParserInstance->nextSibling(child);
  }
  return child;
}

std::string errorAt(const std::string& path, int line, int column, const std::string& text) {
  return path + ":" + std::to_string(line) + ":" + std::to_string(column) + ": error: " + text;
}

std::string composeProblem(const std::string& path, const XMLProblem& problem) {
  if (problem.line == 0) {
    return path + ": error: " + problem.text + "; give the path of a readable feature description";
  }
  return errorAt(path, problem.line, problem.column, problem.text + "; correct the XML there");
}

}  // namespace

DescriptionFile::DescriptionFile(const std::string& path, std::unique_ptr<XMLDocument> document,
                                 void* element)
    : path_(path), document_(std::move(document)), element_(element) {}

std::unique_ptr<DescriptionFile> DescriptionFile::read(const std::string& path,
                                                       std::string& problem) {
  XMLProblem xmlProblem;
  auto document = XMLDocument::parseFile(path, xmlProblem);
  if (!document) {
    problem = composeProblem(path, xmlProblem);
    return nullptr;
  }
  void* root = document->root();
  void* element = findDescription(root);
  if (element == nullptr) {
    problem = errorAt(path, XMLDocument::lineOf(root), 1,
                      std::string("there is no ") + kElementName + " element; the root <" +
                          tagOf(root) + "> or one of its children must be <" + kElementName + ">");
    return nullptr;
  }
  return std::unique_ptr<DescriptionFile>(new DescriptionFile(path, std::move(document), element));
}

}  // namespace driver_feature
