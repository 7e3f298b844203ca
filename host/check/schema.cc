#include "host/check/schema.h"

#include <libxml/parser.h>
#include <libxml/relaxng.h>
#include <libxml/tree.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <stdexcept>

#include "host/base/text.h"

namespace driver_feature::check {

namespace {

template <class Object, void (*kFree)(Object*)>
struct Deleter {
  void operator()(Object* object) const { kFree(object); }
};
using DocumentPointer = std::unique_ptr<xmlDoc, Deleter<xmlDoc, xmlFreeDoc>>;
using ParserPointer =
    std::unique_ptr<xmlRelaxNGParserCtxt, Deleter<xmlRelaxNGParserCtxt, xmlRelaxNGFreeParserCtxt>>;
using SchemaPointer = std::unique_ptr<xmlRelaxNG, Deleter<xmlRelaxNG, xmlRelaxNGFree>>;
using ValidatorPointer =
    std::unique_ptr<xmlRelaxNGValidCtxt, Deleter<xmlRelaxNGValidCtxt, xmlRelaxNGFreeValidCtxt>>;

// The element of the tree for each element of the parsed document.
using ElementMap = std::map<const xmlNode*, const host::Element*>;

constexpr std::size_t kShownCharacters = 20;

struct Complaint {
  const host::Element* element;
  std::string text;
  bool isExtra;  // Whether it reports that the element is one too many.
};

struct Net {
  ElementMap elements;
  std::vector<Complaint> complaints;
};

void ignoreText(void* /*context*/, const char* /*format*/, ...) {}

// libxml2's message as one sentence without its line end.
std::string sentenceOf(const char* message) {
  std::string text = message != nullptr ? message : "";
  while (text.ends_with('\n') || text.ends_with(' ')) text.pop_back();
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

// The error's type is constant from libxml2 2.12 on.
template <class Error>
void noteError(void* context, Error* error) {
  auto& net = *static_cast<Net*>(context);
  const auto found = net.elements.find(static_cast<const xmlNode*>(error->node));
  // Text is reported without the schema's help.
  const bool isText = error->code == XML_RELAXNG_ERR_TEXTWRONG;
  if (isText || found == net.elements.end()) return;
  net.complaints.push_back(
      {found->second, sentenceOf(error->message), error->code == XML_RELAXNG_ERR_EXTRACONTENT});
}

xmlNode* nextElement(xmlNode* node) {
  while (node != nullptr && node->type != XML_ELEMENT_NODE) node = node->next;
  return node;
}

// The element with the given number, counted through the whole document.
xmlNode* elementNumber(xmlNode* node, std::size_t& number) {
  if (number == 0) return node;
  for (xmlNode* child = nextElement(node->children); child != nullptr;
       child = nextElement(child->next)) {
    --number;
    if (xmlNode* found = elementNumber(child, number)) return found;
  }
  return nullptr;
}

void mapElements(xmlNode* node, const host::Element& element, ElementMap& map) {
  map[node] = &element;
  xmlNode* child = nextElement(node->children);
  for (const auto& inner : element.children) {
    if (child == nullptr) return;
    mapElements(child, *inner, map);
    child = nextElement(child->next);
  }
}

DocumentPointer parse(const std::string& text) {
  return DocumentPointer(
      xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                    XML_PARSE_NONET | XML_PARSE_HUGE | XML_PARSE_NOERROR | XML_PARSE_NOWARNING));
}

SchemaPointer readSchema() {
  const ParserPointer parser(xmlRelaxNGNewMemParserCtxt(
      kFeatureDescriptionSchema, static_cast<int>(std::strlen(kFeatureDescriptionSchema))));
  if (!parser) return nullptr;
  xmlRelaxNGSetParserErrors(parser.get(), ignoreText, ignoreText, nullptr);
  return SchemaPointer(xmlRelaxNGParse(parser.get()));
}

// A document of the description alone: the rest is not ours.
DocumentPointer takeOut(xmlNode* description) {
  DocumentPointer document(xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0")));
  if (!document) return nullptr;
  xmlNode* copy = xmlDocCopyNode(description, document.get(), 1);
  if (copy == nullptr) return nullptr;
  xmlDocSetRootElement(document.get(), copy);
  return document;
}

bool isReportedItself(const host::Element& element, const Findings& findings) {
  return std::any_of(findings.begin(), findings.end(), [&element](const Finding& finding) {
    const bool atAttribute = std::any_of(
        element.attributes.begin(), element.attributes.end(),
        [&finding](const host::Attribute& item) { return item.position == finding.position; });
    return atAttribute || finding.position == element.position;
  });
}

// Where the cause of a complaint may lie. libxml2 names the element at which
// it gave up, which may be one after the faulty one or inside it. A child of
// the description is trusted, unless it is only one too many.
const host::Element& causeOf(const Complaint& complaint) {
  const host::Element& element = *complaint.element;
  if (element.parent == nullptr) return element;
  const bool isTrusted = element.parent->role == host::Role::kDescription && !complaint.isExtra;
  return isTrusted ? element : *element.parent;
}

bool isReported(const Complaint& complaint, const Findings& findings) {
  bool reported = false;
  forEachElement(causeOf(complaint), [&](const host::Element& inner) {
    reported = reported || isReportedItself(inner, findings);
  });
  return reported;
}

// The first text of an element that is more than blanks, shortened.
std::string strayText(const xmlNode& element) {
  for (const xmlNode* child = element.children; child != nullptr; child = child->next) {
    const bool isText = child->type == XML_TEXT_NODE || child->type == XML_CDATA_SECTION_NODE;
    if (!isText || child->content == nullptr) continue;
    const std::string text = reinterpret_cast<const char*>(child->content);
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    if (begin == std::string::npos) continue;
    std::string shown = text.substr(begin, text.find_last_not_of(" \t\r\n") + 1 - begin);
    const auto characters = host::splitCharacters(shown);
    if (characters.size() <= kShownCharacters) return shown;
    const char* end = characters[kShownCharacters].data();
    return shown.substr(0, static_cast<std::size_t>(end - shown.data())) + "...";
  }
  return "";
}

void reportStrayTexts(const ElementMap& elements, Findings& findings) {
  for (const auto& [node, element] : elements) {
    const std::string text = strayText(*node);
    // The content of an element that is not read is not read either.
    const bool isRead = element->role != host::Role::kOther;
    if (!isRead || text.empty()) continue;
    findings.push_back(
        {Code::kStrayText,
         element->position,
         "the text \"" + text + "\" inside " + describeElement(*element) + " is not read",
         "remove it, or put it into a comment",
         {}});
  }
}

void validate(xmlDoc* document, Net& net) {
  const SchemaPointer schema = readSchema();
  if (!schema) throw std::runtime_error("the schema of feature descriptions cannot be read");
  const ValidatorPointer validator(xmlRelaxNGNewValidCtxt(schema.get()));
  if (!validator) throw std::runtime_error("the schema of feature descriptions cannot be used");
  xmlRelaxNGSetValidStructuredErrors(validator.get(), noteError, &net);
  xmlRelaxNGValidateDoc(validator.get(), document);
}

}  // namespace

void checkSchema(const std::string& document, const host::Element& description,
                 Findings& findings) {
  const DocumentPointer parsed = parse(document);
  if (!parsed) return;
  std::size_t number = description.number;
  xmlNode* root = elementNumber(xmlDocGetRootElement(parsed.get()), number);
  const DocumentPointer alone = root != nullptr ? takeOut(root) : nullptr;
  if (!alone) return;
  Net net;
  mapElements(xmlDocGetRootElement(alone.get()), description, net.elements);
  reportStrayTexts(net.elements, findings);
  validate(alone.get(), net);
  // The innermost element is the wrong one; those around it fail with it.
  std::stable_sort(net.complaints.begin(), net.complaints.end(),
                   [](const Complaint& left, const Complaint& right) {
                     return left.element->number > right.element->number;
                   });
  for (const Complaint& complaint : net.complaints) {
    if (isReported(complaint, findings)) continue;
    findings.push_back({Code::kSchema,
                        complaint.element->position,
                        "the schema does not allow this: " + complaint.text,
                        "correct " + describeElement(*complaint.element),
                        {}});
  }
}

}  // namespace driver_feature::check
