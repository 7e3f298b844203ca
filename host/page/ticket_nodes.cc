#include "host/page/ticket_nodes.h"

#include <algorithm>

namespace driver_feature::page {

namespace {

// Reads the lines of a ticket: each node begins on a line of its own.
class TicketReader {
 public:
  explicit TicketReader(std::string_view text) : text_(text) {}

  // The nodes of a section.
  std::vector<TicketNode> section(std::string_view tag) {
    const std::string start = "  <" + std::string(tag) + ">\n";
    const std::size_t found = text_.find(start);
    if (found == std::string_view::npos) return {};
    at_ = found + start.size();
    return nodes("  </" + std::string(tag) + ">");
  }

 private:
  std::string_view line() const {
    return text_.substr(at_, std::min(text_.find('\n', at_), text_.size()) - at_);
  }
  void next() { at_ = std::min(at_ + line().size() + 1, text_.size()); }

  static std::string_view trimmed(std::string_view line) {
    return line.substr(std::min(line.find_first_not_of(' '), line.size()));
  }

  std::vector<TicketNode> nodes(std::string_view last) {
    std::vector<TicketNode> found;
    while (at_ < text_.size() && trimmed(line()) != trimmed(last)) found.push_back(node());
    return found;
  }

  TicketNode node() {
    constexpr std::string_view kName = " name=\"";
    TicketNode node;
    node.begin = at_;
    const std::string_view text = line();
    const std::size_t name = std::min(text.find(kName), text.size() - 1);
    node.name = text.substr(std::min(name + kName.size(), text.size()));
    node.name = node.name.substr(0, std::min(node.name.find('"'), node.name.size()));
    next();
    node.headEnd = at_;
    const bool isOpen = trimmed(text).starts_with("<Group") && !text.ends_with("/>");
    if (isOpen) {
      node.children = nodes("</Group>");
      next();
    }
    node.end = at_;
    return node;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace

std::vector<TicketNode> ticketNodes(std::string_view ticket, std::string_view section) {
  return TicketReader(ticket).section(section);
}

std::string spelledInTicket(std::string_view text) {
  std::string result;
  for (const char character : text) {
    switch (character) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      case '\t':
        result += "&#9;";
        break;
      case '\n':
        result += "&#10;";
        break;
      case '\r':
        result += "&#13;";
        break;
      default:
        result += character;
    }
  }
  return result;
}

}  // namespace driver_feature::page
