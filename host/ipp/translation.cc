#include "host/ipp/translation.h"

#include <utility>

#include "host/ipp/attribute_table.h"
#include "host/ipp/job_reader.h"
#include "host/ipp/setting_attributes.h"
#include "host/ipp/strings.h"

namespace driver_feature::ipp {

Translation::Translation(Capabilities capabilities)
    : capabilities_(std::make_unique<const Capabilities>(std::move(capabilities))),
      table_(std::make_unique<const AttributeTable>(attributeTableOf(*capabilities_))) {}

Translation::~Translation() = default;
Translation::Translation(Translation&& other) noexcept = default;
Translation& Translation::operator=(Translation&& other) noexcept = default;

const Capabilities& Translation::capabilities() const {
  return *capabilities_;
}

void Translation::addPrinterAttributes(ipp_t* response) const {
  std::vector<std::string> names;
  addAllAttributes(response, *table_, *capabilities_, names);
}

std::vector<std::string> Translation::jobAttributeNames() const {
  std::vector<std::string> names;
  ipp_t* response = ippNew();
  addAllAttributes(response, *table_, *capabilities_, names);
  ippDelete(response);
  return names;
}

JobSettings Translation::settingsOf(ipp_t* request, const std::string& preset) const {
  return readJob(*capabilities_, *table_, request, preset);
}

void Translation::addSettings(ipp_t* response, ipp_tag_t group,
                              const std::vector<host::Setting>& settings) const {
  addSettingAttributes(response, group, *table_, settings);
}

std::vector<std::string> Translation::attributesOf(const std::string& feature) const {
  return carriersOf(*table_, feature);
}

std::vector<std::string> Translation::languages() const {
  return languagesOf(*capabilities_);
}

std::string Translation::strings(const std::string& language) const {
  return stringsOf(*capabilities_, *table_, language);
}

}  // namespace driver_feature::ipp
