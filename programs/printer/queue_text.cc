#include "programs/printer/queue_text.h"

#include "host/ppd/queue/minimal_ppd.h"
#include "host/ppd/queue/plain_stamp.h"
#include "host/ppd/queue/read_back.h"

namespace driver_feature::printer {

host::Result<std::string> queueText(const host::Session& session, const std::string& name,
                                    const ppd::QueueRequest& request) {
  auto lines = ppd::queueLines(request);
  if (!lines) return failureOf(lines);
  // Clients' attributes are settings of the features already.
  lines->emplace_back("*DriverFeatureDirect: \"true\"");
  // The filter reads the rules in the description.
  const host::Additions& additions = session.additions(host::kMediaPart);
  std::string text = ppd::minimalPpd(session.model(), additions, name, *lines).text;
  // The stamp lets the filter print without libcups.
  std::string stamp = ppd::plainStampLine(text);
  if (!stamp.empty()) {
    lines->insert(lines->begin(), std::move(stamp));
    text = ppd::minimalPpd(session.model(), additions, name, *lines).text;
  }
  if (const auto unusable = ppd::readBack(text, *lines, nullptr)) {
    return host::refused("libcups cannot use the PPD that jobs would be printed with: " +
                         unusable->reason);
  }
  return text;
}

}  // namespace driver_feature::printer
