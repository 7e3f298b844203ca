#include "support/untyped_feature.h"

#include <string>

namespace driver_feature::testing {

namespace {

class UntypedOption final : public CoreOption {
 public:
  bool getOptionProperty(const std::string& name, std::string& value) override {
    value = "option";
    return name == "PSCommand";
  }
  bool getOptionProperty(const std::string&, bool*) override { return false; }
  bool setOptionProperty(const std::string&, const std::string&) override { return false; }
  bool setOptionProperty(const std::string&, bool) override { return false; }
};

class UntypedFeature final : public CoreFeature {
 public:
  bool setFeatureProperty(const std::string&, const std::string&) override { return false; }
  bool setFeatureProperty(const std::string&, int) override { return false; }
  bool setFeatureProperty(const std::string&, float) override { return false; }
  bool setFeatureProperty(const std::string&, bool) override { return true; }
  bool getFeatureProperty(const std::string& name, std::string& value) override {
    value = "untyped %s;";
    return name == "PSCommand";
  }
  bool getFeatureProperty(const std::string&, int*) override { return false; }
  bool getFeatureProperty(const std::string&, bool*) override { return false; }
  bool getFeatureProperty(const std::string&, float*) override { return false; }
  int getFeatureType() override { return 1; }
  CoreOption* fetchCurrentOption() override { return &option_; }

 private:
  UntypedOption option_;
};

}  // namespace

CoreFeature& untypedFeature() {
  static UntypedFeature feature;
  return feature;
}

}  // namespace driver_feature::testing
