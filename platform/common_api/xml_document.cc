#include "XMLDocument.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

struct XMLDocument::Tree {
  explicit Tree(xmlDoc* tree) : document(tree) {}
  ~Tree() { xmlFreeDoc(document); }
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;

  xmlDoc* document;
};

namespace {

constexpr std::size_t kHighestSize = std::size_t{64} * 1024 * 1024;

struct ContextDeleter {
  void operator()(xmlParserCtxt* context) const {
    if (context->myDoc != nullptr) xmlFreeDoc(context->myDoc);
    context->myDoc = nullptr;
    xmlFreeParserCtxt(context);
  }
};
using Context = std::unique_ptr<xmlParserCtxt, ContextDeleter>;

// What a parse has found; the first error is the one that tells.
struct ParseReport {
  XMLProblem problem;
  bool failed = false;
};

ParseReport& reportOf(xmlParserCtxt* context) {
  return *static_cast<ParseReport*>(context->_private);
}

void noteProblem(ParseReport& report, int line, int column, const std::string& text) {
  if (report.failed) return;
  report.failed = true;
  report.problem = {line, column, text};
}

void onError(void* context, xmlError* error) {
  auto* parser = static_cast<xmlParserCtxt*>(context);
  if (error->level < XML_ERR_ERROR) return;
  std::string text = error->message != nullptr ? error->message : "cannot be read";
  while (!text.empty() && text.back() == '\n') text.pop_back();
  noteProblem(reportOf(parser), error->line, error->int2, text);
}

void onEntityDeclaration(void* context, const xmlChar* name, int /*type*/,
                         const xmlChar* /*publicId*/, const xmlChar* /*systemId*/,
                         xmlChar* /*content*/) {
  auto* parser = static_cast<xmlParserCtxt*>(context);
  noteProblem(reportOf(parser), xmlSAX2GetLineNumber(parser), xmlSAX2GetColumnNumber(parser),
              "entity '" + std::string(reinterpret_cast<const char*>(name)) +
                  "' is declared; entity declarations are not accepted");
  xmlStopParser(parser);
}

bool readFile(const std::string& path, std::string& text, XMLProblem& problem) {
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
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
    problem.text = "is larger than 64 MiB";
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
    problem.text = "is larger than 64 MiB";
    return nullptr;
  }
  const Context context(xmlNewParserCtxt());
  if (!context) {
    problem.text = "cannot be read: out of memory";
    return nullptr;
  }
  ParseReport report;
  context->_private = &report;
  context->sax->serror = onError;
  context->sax->entityDecl = onEntityDeclaration;
  xmlDoc* document =
      xmlCtxtReadMemory(context.get(), text.data(), static_cast<int>(text.size()), name.c_str(),
                        nullptr, XML_PARSE_NONET | XML_PARSE_BIG_LINES);
  if (document != nullptr && !report.failed && xmlDocGetRootElement(document) != nullptr) {
    return std::unique_ptr<XMLDocument>(new XMLDocument(std::make_unique<Tree>(document)));
  }
  xmlFreeDoc(document);
  problem = report.failed ? report.problem : XMLProblem{1, 1, "cannot be read"};
  return nullptr;
}

void* XMLDocument::root() const { return xmlDocGetRootElement(tree_->document); }

int XMLDocument::lineOf(void* element) {
  return element != nullptr ? static_cast<int>(xmlGetLineNo(static_cast<xmlNode*>(element))) : 0;
}
