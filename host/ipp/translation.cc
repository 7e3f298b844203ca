#include "host/ipp/translation.h"

#include <algorithm>
#include <utility>

#include "host/ipp/attribute_table.h"
#include "host/ipp/constraints.h"
#include "host/ipp/job_reader.h"
#include "host/ipp/media_table.h"
#include "host/ipp/setting_attributes.h"
#include "host/ipp/strings.h"
#include "host/ipp/words.h"

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

std::size_t Translation::addPrinterAttributes(ipp_t* response) const {
  std::vector<std::string> names;
  addAllAttributes(response, *table_, names);
  return addConstraints(response, *table_, *capabilities_);
}

std::vector<std::string> Translation::jobAttributeNames() const {
  std::vector<std::string> names;
  ipp_t* response = ippNew();
  addAllAttributes(response, *table_, names);
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

std::string Translation::mediaOf(const std::vector<host::Setting>& settings) const {
  const MediaEntry* entry = entryOfSettings(*table_, settings);
  return entry != nullptr ? entry->keyword : "";
}

void Translation::change(JobSettings& job, const std::vector<host::Setting>& changes) const {
  for (const host::Setting& change : changes) {
    const auto same = std::find_if(
        job.settings.begin(), job.settings.end(),
        [&change](const host::Setting& setting) { return setting.name == change.name; });
    if (same == job.settings.end()) {
      job.settings.push_back(change);
    } else {
      same->value = change.value;
    }
    const bool isCopies = table_->copies != nullptr && table_->copies->name == change.name;
    if (isCopies) job.copies = integerIn(change.value).value_or(job.copies);
  }
  if (const MediaEntry* entry = entryOfSettings(*table_, changes)) {
    job.sheet = {entry->size.width, entry->size.height};
  }
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
