// Reads XML files for host programs. Of the development edition only: a real
// host has its own way to a document.
//
// The handles that a document gives out are the ones pParserInstance takes.
//
//   XMLProblem problem;
//   auto document = XMLDocument::parseFile("office.xml", problem);
//   if (!document) report(problem.line, problem.column, problem.text);
//   void* element = document->root();
#ifndef PLATFORM_COMMON_API_XML_DOCUMENT_H_
#define PLATFORM_COMMON_API_XML_DOCUMENT_H_

#include <memory>
#include <string>

// Why a document could not be read: its first error. Line and column count
// from 1 and are 0 when the problem has no place (a file that is not there).
struct XMLProblem {
  int line = 0;
  int column = 0;
  std::string text;
};

// Text in an element.
struct XMLContent {
  std::string text;
  int line = 0;  // On which it begins.
};

class XMLDocument {
 public:
  // Read a document; null and a filled `problem` when that fails. The text may
  // be in any encoding that its declaration or its byte order mark names.
  //
  // Nothing else is read: no external subset, no network, no inclusions.
  // Refused are documents that declare entities or default values of
  // attributes (the place is the end of that declaration's text), that use
  // prefixes without a namespace, that nest elements deeper than 256, or that
  // are larger than 64 MiB.
  static std::unique_ptr<XMLDocument> parseFile(const std::string& path, XMLProblem& problem);

  // The same from memory; `name` is the file's name in messages.
  static std::unique_ptr<XMLDocument> parseText(const std::string& text, const std::string& name,
                                                XMLProblem& problem);

  ~XMLDocument();
  XMLDocument(const XMLDocument&) = delete;
  XMLDocument& operator=(const XMLDocument&) = delete;

  // The root element. Handles live as long as the document.
  void* root() const;

  // The line, counted from 1, on which the start tag of `element` begins, or 0
  // for null.
  static int lineOf(void* element);

  // The text in `element` before its first child, references resolved and
  // comments left out. Empty for null. The line is too small by the line ends
  // inside of the start tag's values, which are not kept; in a text that is not
  // plain, by all those of the start tag.
  static XMLContent contentOf(void* element);

 private:
  struct Tree;
  explicit XMLDocument(std::unique_ptr<Tree> tree);
  std::unique_ptr<Tree> tree_;
};

#endif  // PLATFORM_COMMON_API_XML_DOCUMENT_H_
