// The functions of libxml2 that the platform's libraries and the programs use, each
// of which loads it when it is called for the first time.
//
// With libxml2 come four other libraries, one of them with 30 MB of tables. To load
// them takes as long as most loads of a description, which is read without them. So
// nothing is linked with libxml2; what never calls one of these functions never
// loads it.

#include <dlfcn.h>
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>

#include <stdexcept>
#include <string>

namespace {

[[noreturn]] void refuse() {
  const char* reason = ::dlerror();
  throw std::runtime_error(
      "libxml2 cannot be loaded: " + std::string(reason != nullptr ? reason : "unknown error") +
      "; install the package libxml2");
}

// Throws std::runtime_error when the library is not there or is another one.
void* addressOf(const char* name) {
  static void* const library = ::dlopen(LIBXML2_FILE_NAME, RTLD_NOW | RTLD_LOCAL);
  void* address = library != nullptr ? ::dlsym(library, name) : nullptr;
  if (address == nullptr) refuse();
  return address;
}

template <class Function>
Function* loaded(const char* name) {
  return reinterpret_cast<Function*>(addressOf(name));
}

// What xmlFree points to in the library, at the time of the call.
void freeMemory(void* memory) {
  static const auto* const function = static_cast<xmlFreeFunc*>(addressOf("xmlFree"));
  (*function)(memory);
}

}  // namespace

// The headers call most parameters by other names.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

// A variable of the library.
xmlFreeFunc xmlFree = &freeMemory;

// Parsing.

xmlStructuredErrorFunc* __xmlStructuredError() {
  static const auto call = loaded<decltype(__xmlStructuredError)>("__xmlStructuredError");
  return call();
}

void** __xmlStructuredErrorContext() {
  static const auto call =
      loaded<decltype(__xmlStructuredErrorContext)>("__xmlStructuredErrorContext");
  return call();
}

xmlDoc* xmlCtxtReadMemory(xmlParserCtxt* parser, const char* text, int size, const char* name,
                          const char* encoding, int options) {
  static const auto call = loaded<decltype(xmlCtxtReadMemory)>("xmlCtxtReadMemory");
  return call(parser, text, size, name, encoding, options);
}

void xmlFreeEnumeration(xmlEnumeration* choices) {
  static const auto call = loaded<decltype(xmlFreeEnumeration)>("xmlFreeEnumeration");
  call(choices);
}

void xmlFreeParserCtxt(xmlParserCtxt* parser) {
  static const auto call = loaded<decltype(xmlFreeParserCtxt)>("xmlFreeParserCtxt");
  call(parser);
}

xmlParserCtxt* xmlNewParserCtxt() {
  static const auto call = loaded<decltype(xmlNewParserCtxt)>("xmlNewParserCtxt");
  return call();
}

xmlDoc* xmlReadMemory(const char* text, int size, const char* name, const char* encoding,
                      int options) {
  static const auto call = loaded<decltype(xmlReadMemory)>("xmlReadMemory");
  return call(text, size, name, encoding, options);
}

void xmlSAX2AttributeDecl(void* parser, const xmlChar* element, const xmlChar* name, int type,
                          int kind, const xmlChar* value, xmlEnumeration* choices) {
  static const auto call = loaded<decltype(xmlSAX2AttributeDecl)>("xmlSAX2AttributeDecl");
  call(parser, element, name, type, kind, value, choices);
}

void xmlSAX2Characters(void* parser, const xmlChar* text, int length) {
  static const auto call = loaded<decltype(xmlSAX2Characters)>("xmlSAX2Characters");
  call(parser, text, length);
}

int xmlSAX2GetColumnNumber(void* parser) {
  static const auto call = loaded<decltype(xmlSAX2GetColumnNumber)>("xmlSAX2GetColumnNumber");
  return call(parser);
}

int xmlSAX2GetLineNumber(void* parser) {
  static const auto call = loaded<decltype(xmlSAX2GetLineNumber)>("xmlSAX2GetLineNumber");
  return call(parser);
}

void xmlSAX2StartElementNs(void* parser, const xmlChar* name, const xmlChar* prefix,
                           const xmlChar* uri, int namespaceCount, const xmlChar** namespaces,
                           int attributeCount, int defaultedCount, const xmlChar** attributes) {
  static const auto call = loaded<decltype(xmlSAX2StartElementNs)>("xmlSAX2StartElementNs");
  call(parser, name, prefix, uri, namespaceCount, namespaces, attributeCount, defaultedCount,
       attributes);
}

void xmlSetStructuredErrorFunc(void* context, xmlStructuredErrorFunc handler) {
  static const auto call = loaded<decltype(xmlSetStructuredErrorFunc)>("xmlSetStructuredErrorFunc");
  call(context, handler);
}

void xmlStopParser(xmlParserCtxt* parser) {
  static const auto call = loaded<decltype(xmlStopParser)>("xmlStopParser");
  call(parser);
}

// Documents.

xmlChar* xmlNodeListGetString(xmlDoc* document, const xmlNode* list, int inLine) {
  static const auto call = loaded<decltype(xmlNodeListGetString)>("xmlNodeListGetString");
  return call(document, list, inLine);
}

xmlNode* xmlDocCopyNode(xmlNode* node, xmlDoc* document, int extended) {
  static const auto call = loaded<decltype(xmlDocCopyNode)>("xmlDocCopyNode");
  return call(node, document, extended);
}

xmlNode* xmlDocGetRootElement(const xmlDoc* document) {
  static const auto call = loaded<decltype(xmlDocGetRootElement)>("xmlDocGetRootElement");
  return call(document);
}

xmlNode* xmlDocSetRootElement(xmlDoc* document, xmlNode* root) {
  static const auto call = loaded<decltype(xmlDocSetRootElement)>("xmlDocSetRootElement");
  return call(document, root);
}

void xmlDocDumpFormatMemoryEnc(xmlDoc* document, xmlChar** text, int* size, const char* encoding,
                               int format) {
  static const auto call = loaded<decltype(xmlDocDumpFormatMemoryEnc)>("xmlDocDumpFormatMemoryEnc");
  call(document, text, size, encoding, format);
}

void xmlFreeDoc(xmlDoc* document) {
  static const auto call = loaded<decltype(xmlFreeDoc)>("xmlFreeDoc");
  call(document);
}

xmlNode* xmlNewTextChild(xmlNode* parent, xmlNs* space, const xmlChar* name,
                         const xmlChar* content) {
  static const auto call = loaded<decltype(xmlNewTextChild)>("xmlNewTextChild");
  return call(parent, space, name, content);
}

xmlDoc* xmlNewDoc(const xmlChar* version) {
  static const auto call = loaded<decltype(xmlNewDoc)>("xmlNewDoc");
  return call(version);
}

xmlNode* xmlNewDocNode(xmlDoc* document, xmlNs* space, const xmlChar* name,
                       const xmlChar* content) {
  static const auto call = loaded<decltype(xmlNewDocNode)>("xmlNewDocNode");
  return call(document, space, name, content);
}

xmlAttr* xmlNewProp(xmlNode* node, const xmlChar* name, const xmlChar* value) {
  static const auto call = loaded<decltype(xmlNewProp)>("xmlNewProp");
  return call(node, name, value);
}

}  // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
