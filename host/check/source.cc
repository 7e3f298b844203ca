#include "host/check/source.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "XMLParser.h"

namespace driver_feature {

namespace {

constexpr const char* kElementName = "FeatureDescription";
constexpr std::size_t kHighestSize = std::size_t{64} * 1024 * 1024;  // As of XMLDocument.

// Why the file cannot be read; empty when it has been.
std::string readBytes(const std::string& path, std::string& text) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"),
                                                             &std::fclose);
  if (!file) return std::string("cannot be opened: ") + std::strerror(errno);
  struct stat status {};
  if (fstat(fileno(file.get()), &status) == 0 && S_ISDIR(status.st_mode)) return "is a directory";
  std::array<char, 65536> buffer{};
  // A longer text is refused when it is parsed, so the rest is not needed.
  while (text.size() <= kHighestSize) {
    const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file.get());
    if (count == 0) break;
    text.append(buffer.data(), count);
  }
  if (std::ferror(file.get()) == 0) return "";
  return std::string("cannot be read: ") + std::strerror(errno);
}

std::string tagOf(void* element) {
  std::string tag;
  pParserInstance->tagName(element, tag);
  return tag;
}

std::size_t countElements(void* element) {
  std::size_t count = 1;
  for (void* child = pParserInstance->firstChild(element); child != nullptr;
       child = pParserInstance->nextSibling(child)) {
    count += countElements(child);
  }
  return count;
}

// The description, its number among the document's elements, and the number
// of a second one that nobody reads.
struct Place {
  void* handle = nullptr;
  std::size_t number = 0;
  std::size_t second = 0;  // 0: there is none.
};

Place findDescription(void* root) {
  if (tagOf(root) == kElementName) return {root, 0, 0};
  Place place;
  std::size_t number = 1;
  for (void* child = pParserInstance->firstChild(root); child != nullptr;
       child = pParserInstance->nextSibling(child)) {
    const bool isDescription = tagOf(child) == kElementName;
    if (isDescription && place.handle != nullptr) {
      place.second = number;
      break;
    }
    if (isDescription) place = {child, number, 0};
    number += countElements(child);
  }
  return place;
}

Position positionOf(const std::vector<StartTag>& tags, std::size_t number) {
  return number < tags.size() ? tags[number].position : Position{};
}

std::unique_ptr<CheckedSource> fail(const Finding& finding, Findings& findings) {
  findings.push_back(finding);
  return nullptr;
}

}  // namespace

std::unique_ptr<CheckedSource> readSource(const std::string& path, Findings& findings) {
  auto source = std::make_unique<CheckedSource>();
  const std::string reason = readBytes(path, source->text);
  if (!reason.empty()) {
    return fail({Code::kUnreadable,
                 {},
                 "the file " + reason,
                 "give the path of a readable feature description",
                 {}},
                findings);
  }
  XMLProblem problem;
  source->document = XMLDocument::parseText(source->text, path, problem);
  if (!source->document) {
    return fail(
        {Code::kNotXml, {problem.line, problem.column}, problem.text, "correct the XML there", {}},
        findings);
  }
  const std::vector<StartTag> tags =
      findStartTags(decodeText(source->text, declaredEncoding(source->text)));
  void* root = source->document->root();
  const Place place = findDescription(root);
  if (place.handle == nullptr) {
    return fail(
        {Code::kNoDescription,
         positionOf(tags, 0),
         std::string("there is no ") + kElementName + " element",
         "name the root <" + tagOf(root) + "> or one of its children <" + kElementName + ">",
         {}},
        findings);
  }
  if (place.second != 0) {
    findings.push_back({Code::kSecondDescription,
                        positionOf(tags, place.second),
                        std::string("this ") + kElementName +
                            " is not read, because it is not "
                            "the first one",
                        "join the two or remove one of them",
                        {}});
  }
  source->handle = place.handle;
  source->elements = buildTree(place.handle, tags, place.number);
  return source;
}

}  // namespace driver_feature
