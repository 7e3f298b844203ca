#include "host/emit.h"

#include <map>

#include "host/console.h"

namespace driver_feature {

namespace {

const std::map<std::string, OutputForm>& forms() {
  static const std::map<std::string, OutputForm> kForms = {
      {"pjl", OutputForm::kPjl}, {"ps", OutputForm::kPostScript}, {"ticket", OutputForm::kTicket}};
  return kForms;
}

Result produce(CoreFeatureSet& set, const EmitRequest& request, const FormRequest& form) {
  Result result{form.file.empty() ? request.file : form.file, ""};
  set.serialize(result.bytes, static_cast<int>(form.form), request.installableOptions,
                request.ticketArgument1.c_str(), request.ticketArgument2.c_str());
  return result;
}

}  // namespace

std::optional<OutputForm> formNamed(const std::string& name) {
  const auto found = forms().find(name);
  if (found == forms().end()) return std::nullopt;
  return found->second;
}

std::vector<std::string> formNames() {
  std::vector<std::string> names;
  for (const auto& [name, form] : forms()) names.push_back(name);
  return names;
}

int emit(const SessionRequest& sessionRequest, const Changes& changes, const EmitRequest& request) {
  return workOnDescription(sessionRequest, changes,
                           [&request](Session& session, std::vector<Result>& results) {
                             for (const FormRequest& form : request.forms) {
                               results.push_back(produce(session.features(), request, form));
                             }
                             return kSuccess;
                           });
}

}  // namespace driver_feature
