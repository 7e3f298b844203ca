// For tests of the ticket writer: a started ticket, its log, and the ticket
// read back.
#ifndef PLATFORM_XML_PARSER_TICKET_TEST_H_
#define PLATFORM_XML_PARSER_TICKET_TEST_H_

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "AttributeMap.h"
#include "VORNWriter.h"
#include "XMLDocument.h"
#include "XMLParser.h"
#include "platform/recorded_log.h"

namespace driver_feature::testing {

class TicketTest : public ::testing::Test {
 protected:
  void start() { writer_.initializeJobTicketDOM("one", "two"); }

  // The operations with texts that need not outlive the call.
  _xmlNode* command(std::string name, std::string syntax, std::string value,
                    bool jobTicketAttribute) {
    return writer_.createCommandNode(name, syntax, value, jobTicketAttribute);
  }
  _xmlNode* group(std::string name, std::string syntax, bool jobTicketAttribute) {
    return writer_.createGroupCommandNode(name, syntax, jobTicketAttribute);
  }
  _xmlNode* childCommand(_xmlNode* parent, std::string name, std::string syntax,
                         std::string value) {
    return writer_.createChildCommandNode(parent, name, syntax, value);
  }
  _xmlNode* childGroup(_xmlNode* parent, std::string name, std::string syntax) {
    return writer_.createChildGroupCommandNode(parent, name, syntax);
  }

  std::string render() {
    std::string output = "before";
    writer_.serializeTicket(output);
    return output;
  }

  static std::unique_ptr<XMLDocument> readBack(const std::string& ticket) {
    XMLProblem problem;
    auto document = XMLDocument::parseText(ticket, "ticket.xml", problem);
    EXPECT_EQ(problem.text, "") << ticket;
    return document;
  }

  static std::string attribute(void* element, const std::string& name) {
    AttributeMap map;
    pParserInstance->attributes(element, map);
    return map[name];
  }

  // A ticket that holds nothing.
  static std::string emptyTicket(const std::string& argument1, const std::string& argument2) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<JobTicket argument1=\"" + argument1 +
           "\" argument2=\"" + argument2 +
           "\">\n  <JobTicketAttributes/>\n  <OutputAttributes/>\n</JobTicket>\n";
  }

  RecordedLog log_;
  VORNWriter writer_;
};

}  // namespace driver_feature::testing

#endif  // PLATFORM_XML_PARSER_TICKET_TEST_H_
