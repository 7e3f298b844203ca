#include "host/check/schema.h"

#include <libxml/parser.h>
#include <libxml/relaxng.h>
#include <libxml/tree.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <stdexcept>

namespace driver_feature {

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
using ElementMap = std::map<const xmlNode*, const Element*>;

struct Complaint {
  const Element* element;
  std::string text;
  int code;  // Of libxml2.
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
  const auto* node = static_cast<const xmlNode*>(error->node);
  while (node != nullptr && node->type != XML_ELEMENT_NODE) node = node->parent;
  const auto found = net.elements.find(node);
  if (found == net.elements.end()) return;
  net.complaints.push_back({found->second, sentenceOf(error->message), error->code});
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

void mapElements(xmlNode* node, const Element& element, ElementMap& map) {
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

// A document of the description alone: the rest belongs to others.
DocumentPointer takeOut(xmlNode* description) {
  DocumentPointer document(xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0")));
  if (!document) return nullptr;
  xmlNode* copy = xmlDocCopyNode(description, document.get(), 1);
  if (copy == nullptr) return nullptr;
  xmlDocSetRootElement(document.get(), copy);
  return document;
}

bool isReportedItself(const Element& element, const Findings& findings) {
  return std::any_of(findings.begin(), findings.end(), [&element](const Finding& finding) {
    const bool atAttribute = std::any_of(
        element.attributes.begin(), element.attributes.end(),
        [&finding](const Attribute& item) { return item.position == finding.position; });
    return atAttribute || finding.position == element.position;
  });
}

// Where the cause of a complaint may lie: inside of the element, or, for one
// that is only too many, anywhere in its parent.
const Element& causeOf(const Complaint& complaint) {
  const bool isExtra = complaint.code == XML_RELAXNG_ERR_EXTRACONTENT;
  const Element& element = *complaint.element;
  return isExtra && element.parent != nullptr ? *element.parent : element;
}

bool isReported(const Complaint& complaint, const Findings& findings) {
  // Text stands in the element itself, whatever else is wrong in there.
  if (complaint.code == XML_RELAXNG_ERR_TEXTWRONG) {
    return std::any_of(findings.begin(), findings.end(), [&complaint](const Finding& finding) {
      return finding.code == Code::kSchema && finding.position == complaint.element->position;
    });
  }
  bool reported = false;
  forEachElement(causeOf(complaint), [&](const Element& inner) {
    reported = reported || isReportedItself(inner, findings);
  });
  return reported;
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

void checkSchema(const std::string& document, const Element& description, Findings& findings) {
  const DocumentPointer parsed = parse(document);
  if (!parsed) return;
  std::size_t number = description.number;
  xmlNode* root = elementNumber(xmlDocGetRootElement(parsed.get()), number);
  const DocumentPointer alone = root != nullptr ? takeOut(root) : nullptr;
  if (!alone) return;
  Net net;
  mapElements(xmlDocGetRootElement(alone.get()), description, net.elements);
  validate(alone.get(), net);
  // The innermost element is what is wrong; those around it fail with it.
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

}  // namespace driver_feature
