#include "xml_reader.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include <algorithm>
#include <cstdint>

#include "xml_scanner.h"

namespace driver_feature {

namespace {

struct ContextDeleter {
  void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
};
using ContextPointer = std::unique_ptr<xmlParserCtxt, ContextDeleter>;

// What a parse has found; only the first error is reported.
struct ParseReport {
  XMLProblem problem;
  bool failed = false;
};

xmlParserCtxt* parserOf(void* context) {
  return static_cast<xmlParserCtxt*>(context);
}

std::string textOf(const xmlChar* text) {
  return text != nullptr ? reinterpret_cast<const char*>(text) : "";
}

void noteProblem(xmlParserCtxt* parser, int line, int column, const std::string& text) {
  auto& report = *static_cast<ParseReport*>(parser->_private);
  if (report.failed) return;
  report.failed = true;
  report.problem = {line, column, text};
}

// Notes a problem at the parser's position.
void noteProblemHere(xmlParserCtxt* parser, const std::string& text) {
  noteProblem(parser, xmlSAX2GetLineNumber(parser), xmlSAX2GetColumnNumber(parser), text);
}

// libxml2's message as one line.
std::string messageOf(const char* message) {
  std::string text = message != nullptr ? message : "cannot be read";
  while (text.ends_with('\n') || text.ends_with(' ')) text.pop_back();
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

// The error's type is constant from libxml2 2.12 on.
template <class Error>
void onError(void* context, Error* error) {
  if (error->level < XML_ERR_ERROR) return;
  const std::string text = messageOf(error->message);
  // A broken encoding is reported without a place.
  if (error->line == 0) return noteProblemHere(parserOf(context), text);
  noteProblem(parserOf(context), error->line, error->int2, text);
}

// libxml2 reports some errors past the parser, which would end up on standard
// error. While this lives they go to onError().
class ErrorCatcher {
 public:
  explicit ErrorCatcher(xmlParserCtxt* parser)
      : handler_(xmlStructuredError), context_(xmlStructuredErrorContext) {
    xmlSetStructuredErrorFunc(parser, onError);
  }
  ~ErrorCatcher() { xmlSetStructuredErrorFunc(context_, handler_); }
  ErrorCatcher(const ErrorCatcher&) = delete;
  ErrorCatcher& operator=(const ErrorCatcher&) = delete;

 private:
  xmlStructuredErrorFunc handler_;
  void* context_;
};

void refuse(void* context, const std::string& text) {
  noteProblemHere(parserOf(context), text);
  xmlStopParser(parserOf(context));
}

void refuseEntity(void* context, const xmlChar* name) {
  refuse(context,
         "entity '" + textOf(name) + "' is declared; entity declarations are not accepted");
}

void onEntity(void* context, const xmlChar* name, int /*type*/, const xmlChar* /*publicId*/,
              const xmlChar* /*systemId*/, xmlChar* /*content*/) {
  refuseEntity(context, name);
}

void onUnparsedEntity(void* context, const xmlChar* name, const xmlChar* /*publicId*/,
                      const xmlChar* /*systemId*/, const xmlChar* /*notation*/) {
  refuseEntity(context, name);
}

// A long default value on an element that occurs often would fill the memory
// from a short file, just as entities can.
void onAttributeDeclaration(void* context, const xmlChar* element, const xmlChar* name, int type,
                            int kind, const xmlChar* value, xmlEnumeration* choices) {
  if (value == nullptr) {
    return xmlSAX2AttributeDecl(context, element, name, type, kind, value, choices);
  }
  xmlFreeEnumeration(choices);
  refuse(context, "attribute '" + textOf(name) +
                      "' is given a default value; default values are not accepted");
}

// The line on which the start tag begins that the parser has read nearly to its
// end, and in which no other "<" can be.
int lineOfStartTag(const xmlParserCtxt& parser) {
  const xmlParserInput& input = *parser.input;
  int line = input.line;
  for (const xmlChar* text = input.cur; text > input.base && *text != '<'; --text) {
    if (text[-1] == '\n') --line;
  }
  return line;
}

// libxml2 keeps 16 bits of a line. The whole number is noted in the field that
// it leaves to its users.
void noteLine(xmlNode& element, int line) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the field is a pointer and holds a number here.
  element._private = reinterpret_cast<void*>(std::intptr_t{line});
}

void onStartElement(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                    int namespaceCount, const xmlChar** namespaces, int attributeCount,
                    int defaultedCount, const xmlChar** attributes) {
  xmlSAX2StartElementNs(context, name, prefix, uri, namespaceCount, namespaces, attributeCount,
                        defaultedCount, attributes);
  const xmlParserCtxt* parser = parserOf(context);
  if (parser->node == nullptr) return;
  noteLine(*parser->node, lineOfStartTag(*parser));
  if (parser->nodeNr > kHighestDepth) refuse(context, "elements are nested deeper than 256");
}

void onText(void* context, const xmlChar* text, int length) {
  const xmlNode* node = parserOf(context)->node;
  const bool isFirst =
      node != nullptr && (node->last == nullptr || node->last->type == XML_TEXT_NODE);
  if (isFirst) xmlSAX2Characters(context, text, length);
}

void setHandlers(xmlSAXHandler& handlers) {
  handlers.serror = onError;
  handlers.entityDecl = onEntity;
  handlers.unparsedEntityDecl = onUnparsedEntity;
  handlers.attributeDecl = onAttributeDeclaration;
  handlers.startElementNs = onStartElement;
  // Elements, their attributes and the text before their first child are all that
  // can be asked for: no memory is spent on the rest, of which every line end and
  // indent would be a node.
  handlers.characters = onText;
  handlers.ignorableWhitespace = onText;
  handlers.cdataBlock = onText;
  handlers.comment = nullptr;
  handlers.processingInstruction = nullptr;
}

// The parser takes a NUL character after the root element for the end.
void checkWholeTextIsRead(xmlParserCtxt* parser) {
  const xmlParserInput* input = parser->input;
  if (input == nullptr || input->cur >= input->end) return;
  noteProblemHere(parser, "a NUL character follows the root element");
}

}  // namespace

TreePointer readTree(std::string_view text, const std::string& name, XMLProblem& problem) {
  const ContextPointer parser(xmlNewParserCtxt());
  if (!parser) {
    problem.text = "cannot be read: out of memory";
    return nullptr;
  }
  ParseReport report;
  parser->_private = &report;
  setHandlers(*parser->sax);
  const ErrorCatcher catcher(parser.get());
  // The size of the text and onStartElement() limit what libxml2 would. Short
  // values are stored in their nodes (COMPACT), since nobody changes the tree, and
  // each value is one text (NOENT): entities, which that would resolve, are
  // refused where they are declared.
  TreePointer tree(xmlCtxtReadMemory(
      parser.get(), text.data(), static_cast<int>(text.size()), name.c_str(), nullptr,
      XML_PARSE_NONET | XML_PARSE_HUGE | XML_PARSE_COMPACT | XML_PARSE_NOENT));
  if (tree) checkWholeTextIsRead(parser.get());
  if (!tree && !report.failed) noteProblem(parser.get(), 1, 1, "cannot be read");
  if (!report.failed) return tree;
  problem = report.problem;
  return nullptr;
}

int notedLine(const xmlNode& element) {
  return static_cast<int>(reinterpret_cast<std::intptr_t>(element._private));
}

}  // namespace driver_feature
