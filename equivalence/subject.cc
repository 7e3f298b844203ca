#include "equivalence/subject.h"

#include "host/session/feature_view.h"

namespace driver_feature::equivalence {

host::Result<std::unique_ptr<Subject>> Subject::load(const host::SessionRequest& request) {
  auto session = host::Session::open(request);
  if (!session) return failureOf(session);
  (*session)->log().release();
  return std::unique_ptr<Subject>(new Subject(std::move(*session)));
}

host::Result<> Subject::set(const FeatureValues& settings) const {
  const host::FeatureMap& features = session_->model().features;
  for (const FeatureValue& setting : settings) {
    const auto found = features.find(setting.feature);
    if (found == features.end()) {
      return host::refused("there is no feature " + setting.feature + " for the value " +
                           setting.value);
    }
    if (!found->second.setValue(setting.value)) {
      return host::refused("the feature " + setting.feature + " refuses the value " +
                           setting.value);
    }
  }
  return {};
}

std::string Subject::serialized(int form) const {
  std::string output;
  session_->features().serialize(output, form, false, "", "");
  return output;
}

std::string Subject::jclEnd() const {
  std::string code;
  const host::FeatureMap& features = session_->model().features;
  if (features.find("JCLEnd") == features.end()) return code;
  CoreFeature* feature = session_->features().FindFeatureInFeatureList(std::string("JCLEnd"));
  CoreOption* option = feature->fetchOptionByName(std::string("True"));
  if (option != nullptr) option->getOptionProperty(std::string("PJLCommand"), code);
  return code;
}

}  // namespace driver_feature::equivalence
