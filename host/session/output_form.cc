#include "host/session/output_form.h"

namespace driver_feature::host {

namespace {

struct FormRow {
  const char* name;
  OutputForm form;
};

constexpr FormRow kForms[] = {
    {"pjl", OutputForm::kPjl}, {"ps", OutputForm::kPostScript}, {"ticket", OutputForm::kTicket}};

}  // namespace

std::optional<OutputForm> formNamed(std::string_view name) {
  for (const FormRow& row : kForms) {
    if (row.name == name) return row.form;
  }
  return std::nullopt;
}

std::vector<std::string> formNames() {
  std::vector<std::string> names;
  for (const FormRow& row : kForms) names.emplace_back(row.name);
  return names;
}

std::string outputOf(CoreFeatureSet& features, OutputForm form) {
  std::string output;
  features.serialize(output, static_cast<int>(form), false, "", "");
  return output;
}

}  // namespace driver_feature::host
