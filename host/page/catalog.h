// The features of a loaded description, indexed so that a change finds them
// quickly.
#ifndef HOST_PAGE_CATALOG_H_
#define HOST_PAGE_CATALOG_H_

#include <map>
#include <string>
#include <vector>

#include "host/session/session.h"

namespace driver_feature::page {

struct CatalogChoice {
  std::string name;
  std::string shown;  // As the page has it.
  IntermediateCoreOption* option = nullptr;
};

struct CatalogFeature {
  std::string name;
  std::string shown;
  const host::FeatureView* view = nullptr;
  bool isColumn = false;  // Of the records of a dynamic group.
  bool isInGroup = false;
  bool isHardware = false;
  std::vector<CatalogChoice> choices;

  // The choice that the page shows as this text; null when there is none.
  const CatalogChoice* choiceShownAs(const std::string& text) const;
};

// A dynamic group.
struct CatalogRecords {
  std::string name;
  std::string shown;
  std::vector<std::string> members;  // All members of the template.
  std::vector<std::size_t> columns;  // The places of those that hold a value.
};

class Catalog {
 public:
  // The session must outlive the catalog.
  explicit Catalog(const host::Session& session);

  // In the order of their names, which is that of outputs.
  const std::vector<CatalogFeature>& features() const { return features_; }
  const std::vector<CatalogRecords>& records() const { return records_; }

  // Null when there is none of that name.
  const CatalogFeature* find(const std::string& name) const;

  // By its name, else by the text that the page shows for it. Two features whose
  // names are not UTF-8 may look alike: the first of them is found.
  const CatalogFeature* findShown(const std::string& text) const;
  const CatalogRecords* findRecords(const std::string& text) const;

  // The value for a text that the page shows.
  static std::string valueShownAs(const CatalogFeature& feature, const std::string& text);

  // Whether routines of the description may change values when others change.
  bool hasChangeRoutines() const { return hasChangeRoutines_; }

 private:
  void addRecords(const host::Session& session);

  std::vector<CatalogFeature> features_;
  std::vector<CatalogRecords> records_;
  std::map<std::string, std::size_t> byName_;
  std::map<std::string, std::size_t> byShown_;
  bool hasChangeRoutines_ = false;
};

}  // namespace driver_feature::page

#endif  // HOST_PAGE_CATALOG_H_
