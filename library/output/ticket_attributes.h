// The current setting of one feature as text.
//
// None of these fails loudly: what cannot be had is logged and left out.
#ifndef OUTPUT_TICKET_ATTRIBUTES_H_
#define OUTPUT_TICKET_ATTRIBUTES_H_

#include <string>

#include "model/core_feature.h"

namespace driver_feature {

// The syntax and the value of a feature's job-ticket node: the current
// option's ticket command, or the current value. Returns false, after a log
// line, if there is no node to write; an empty text makes no node.
bool createTicketNodeAttributes(CoreFeature& feature, std::string& syntax, std::string& value);

// A feature's PostScript or PJL text: the current option's command, or the
// current value, in the feature's command template. `output` is emptied first
// and stays empty, after a log line, if there is no text.
void createTicketPDLAttributes(CoreFeature& feature, const std::string& commandTemplate,
                               std::string& output, bool forPostScript);

// The syntax of a group's job-ticket node. False, after a log line, when it
// cannot be read.
bool createTicketAttributes(CoreFeature& feature, std::string& syntax);

}  // namespace driver_feature

#endif  // OUTPUT_TICKET_ATTRIBUTES_H_
