// The checker's findings for a description that cannot be used.
#ifndef HOST_PAGE_SERVER_FINDINGS_H_
#define HOST_PAGE_SERVER_FINDINGS_H_

#include <functional>
#include <memory>
#include <string>

#include "host/page/page_process.h"
#include "host/page_server/child_text.h"

namespace driver_feature::page_server {

// Checks the description in a process of its own, since its routines may crash
// there again, and calls `done` with the findings as the JSON text of a list:
// severity, code, text, remedy, file, line and column of each. A check that does
// not come to its end is the only one of its findings.
host::Result<std::unique_ptr<ChildText>> findFindings(
    host::EventLoop& loop, const page::PageRequest& request,
    const std::function<void(const std::string& findings)>& done);

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_FINDINGS_H_
