// The platform's job-ticket writer.
//
// A test program may define these operations itself, so the class keeps to
// plain data with initialisers and declares no destructor. A ticket's memory
// is given back by serializeTicket(), which ends it.
#ifndef PLATFORM_XML_PARSER_VORN_WRITER_H_
#define PLATFORM_XML_PARSER_VORN_WRITER_H_

#include <string>

struct _xmlNode;
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is libxml2's.
struct _xmlDoc;

class VORNWriter {
 public:
  VORNWriter();

  // Starts the ticket; the two texts go on its root. Null counts as empty, and
  // so does, after a log line, a text that holds a character that XML cannot
  // hold. A ticket that was started before is given up, its nodes included.
  void initializeJobTicketDOM(const char* argument1, const char* argument2);

  // Add a command, or a group that takes commands and groups, to the section
  // of job-ticket attributes (true) or of output attributes (false). The node
  // belongs to the ticket and lives as long. Null, after a log line at level
  // 1, when a text holds a character that XML cannot hold, when no ticket has
  // been started, or when memory runs out; the ticket is then as it was.
  _xmlNode* createCommandNode(std::string& name, std::string& syntax, std::string& value,
                              bool jobTicketAttribute);
  _xmlNode* createGroupCommandNode(std::string& name, std::string& syntax, bool jobTicketAttribute);

  // Add a group or a command to a group. Null as above, or for a null parent.
  _xmlNode* createChildGroupCommandNode(_xmlNode* parent, std::string& name, std::string& syntax);
  _xmlNode* createChildCommandNode(_xmlNode* parent, std::string& name, std::string& syntax,
                                   std::string& value);

  // Renders the ticket into `output`, replacing what it held, and ends the
  // ticket. Without a started ticket an empty one is rendered. When memory
  // runs out, `output` is empty and a line is logged.
  void serializeTicket(std::string& output);

 private:
  _xmlDoc* document_ = nullptr;
};

#endif  // PLATFORM_XML_PARSER_VORN_WRITER_H_
