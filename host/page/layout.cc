#include "host/page/layout.h"

#include <algorithm>
#include <array>
#include <utility>

#include "host/description/element.h"
#include "host/session/routine_look_up.h"

namespace driver_feature::page {

namespace {

using host::Element;
using host::Role;

constexpr std::array<const char*, 7> kRoutines = {
    "DefaultCallbackHandler", "LoadVORNCallbackHandler", "AddCallbackRoutine",
    "AddPJLCallbackRoutine",  "AddPSCallbackRoutine",    "AddVORNCallbackRoutine",
    "SortFunctionName"};

bool namesForeignRoutine(const Element& element) {
  return std::ranges::any_of(kRoutines, [&](const char* attribute) {
    const std::string routine = element.text(attribute);
    return !routine.empty() && !host::lookUpRoutine(routine).isOfProgram;
  });
}

class LayoutReader {
 public:
  explicit LayoutReader(const Catalog& catalog) : catalog_(catalog) {}

  Layout read(const Element& description) {
    forEachElement(description, [this](const Element& element) { note(element); });
    Section features;
    for (const auto& child : description.children) add(*child, "", features);
    groups_.insert(groups_.begin(), std::move(features));
    groups_.push_back(std::move(hardware_));
    for (Section& section : groups_) {
      if (!section.members.empty()) layout_.sections.push_back(std::move(section));
    }
    return std::move(layout_);
  }

 private:
  void note(const Element& element) {
    layout_.hasForeignRoutines = layout_.hasForeignRoutines || namesForeignRoutine(element);
    if (element.role == Role::kFeature) last_[element.name()] = &element;
    const bool isNamed = element.role == Role::kFeature || element.role == Role::kStaticGroup ||
                         element.role == Role::kDynamicGroup;
    if (isNamed) layout_.places.insert_or_assign(element.name(), element.position);
  }

  // Of two features of one name the last one counts, as in the library.
  void add(const Element& element, const std::string& outer, Section& section) {
    if (element.role == Role::kFeature) {
      const CatalogFeature* feature = catalog_.find(element.name());
      if (feature == nullptr || last_[element.name()] != &element) return;
      const bool isApart = feature->isHardware && section.kind != Section::Kind::kRecords;
      (isApart ? hardware_ : section).members.push_back(feature->name);
    } else if (element.role == Role::kStaticGroup) {
      addGroup(element, Section::Kind::kGroup, element.name(), outer);
    } else if (element.role == Role::kDynamicGroup) {
      addRecords(element, outer);
    }
  }

  void addGroup(const Element& group, Section::Kind kind, const std::string& id,
                const std::string& outer) {
    const std::size_t place = groups_.size();
    groups_.push_back({kind, id, outer, {}});
    Section section = groups_.back();
    for (const auto& child : group.children) add(*child, id, section);
    groups_[place] = std::move(section);
  }

  // The features of its template are its columns.
  void addRecords(const Element& group, const std::string& outer) {
    for (const CatalogRecords& records : catalog_.records()) {
      if (records.name != group.name()) continue;
      Section section{Section::Kind::kRecords, records.name, outer, {}};
      for (const std::size_t column : records.columns) {
        section.members.push_back(records.members[column]);
      }
      groups_.push_back(std::move(section));
      return;
    }
  }

  const Catalog& catalog_;
  Layout layout_;
  std::map<std::string, const Element*> last_;
  std::vector<Section> groups_;
  Section hardware_{Section::Kind::kHardware, "", "", {}};
};

Layout plainLayout(const Catalog& catalog) {
  Layout layout;
  layout.hasForeignRoutines = true;
  layout.sections.emplace_back();
  for (const CatalogFeature& feature : catalog.features()) {
    if (!feature.isColumn) layout.sections.front().members.push_back(feature.name);
  }
  return layout;
}

}  // namespace

Layout layoutOf(const host::Session& session, const Catalog& catalog) {
  const std::string& path = session.model().file;
  if (path == host::kStandardInput) return plainLayout(catalog);
  const host::LogSilence silence;
  const auto document = host::Document::read(path);
  if (!document) return plainLayout(catalog);
  const host::DescriptionElements elements = elementsOf(*document);
  if (elements.description == nullptr) return plainLayout(catalog);
  return LayoutReader(catalog).read(*elements.description);
}

}  // namespace driver_feature::page
