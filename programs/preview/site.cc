#include "programs/preview/site.h"

#include "host/page/page_process.h"
#include "host/page_server/admission.h"
#include "host/page_server/findings.h"
#include "host/page_server/random_name.h"
#include "programs/common/console.h"

namespace driver_feature::preview {

Site::Site(host::EventLoop& loop, const Arguments& arguments)
    : loop_(loop),
      arguments_(arguments),
      server_(loop, {}, [this](const host::Request& request) { return handle(request); }) {
  server_.introduceAs({"driver-feature-preview", HTTP_STATUS_FORBIDDEN});
}

host::Result<> Site::start() {
  auto token = page_server::randomName();
  if (!token) return failureOf(token);
  root_ = "/" + *token + "/";
  auto listening = server_.listen("127.0.0.1:" + std::to_string(arguments_.port));
  if (!listening) {
    listening.error().text += "; give another --port";
    return listening;
  }
  address_ = "http://" + server_.places().front() + root_;
  page_server::PageSetting setting;
  setting.worker.request.description = arguments_.description;
  setting.worker.request.library = arguments_.library;
  setting.worker.request.routines = arguments_.routines;
  setting.worker.request.report = [](const std::string& line) { cli::printError(line); };
  setting.worker.run = page::runPageProcess;
  setting.check = page_server::findFindings;
  page_ = std::make_unique<page_server::Page>(loop_, server_, std::move(setting));
  return {};
}

page_server::Page::Answer Site::handle(const host::Request& request) {
  if (page_ && request.path.starts_with(root_)) {
    return page_->handle(request, request.path.substr(root_.size()));
  }
  host::Response response = host::plainResponse(HTTP_STATUS_NOT_FOUND);
  response.fields = page_server::safeFields();
  return response;
}

}  // namespace driver_feature::preview
