// The options of a PPD that is made of a description.
#ifndef HOST_PPD_QUEUE_MADE_OPTIONS_H_
#define HOST_PPD_QUEUE_MADE_OPTIONS_H_

#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/description/additions.h"
#include "host/description/switch_name.h"
#include "host/ppd/queue/made_constraints.h"
#include "host/ppd/queue/made_texts.h"
#include "host/ppd/queue/page_sizes.h"
#include "host/settings/setting.h"

namespace driver_feature::ppd {

class MadeOptionWriter {
 public:
  // All of them must outlive it.
  MadeOptionWriter(const host::Model& model, const host::Additions& additions,
                   std::vector<std::string>& losses);

  // Writes the options of all features: those of each panel as a group, and those
  // of hardware as one.
  void addAll();

  // The statements written so far.
  const std::string& text() const { return text_; }

  const MadeTexts& texts() const { return texts_; }
  const MadeOptions& options() const { return options_; }

 private:
  static constexpr const char* kPageSize = "PageSize";
  static constexpr const char* kPageRegion = "PageRegion";
  // Marks none of the choices, so that the description's default is used.
  static constexpr const char* kUnknown = "Unknown";

  // A feature that is on or off, as a choice of an option of the PPD.
  struct Switch {
    std::string feature;
    std::string choice;
    bool isOn = false;
  };

  // What the feature is a switch of, as far as people see it.
  static std::optional<host::SwitchName> switchOf(const std::string& name,
                                                  const host::FeatureView& feature);
  // Whether the choices of the feature are those of the PPD's page sizes.
  static bool isPageSizeList(const host::FeatureView& feature);

  std::unordered_map<std::string, std::vector<std::string>> membersOfPanels();
  void addGroup(const std::string& name, const std::string& text,
                const std::vector<std::string>& features);
  void addPageSizes();
  void addRegionRule(const host::FeatureView* size);
  void add(const std::string& name, const host::FeatureView& feature);
  void addList(const std::string& name, const host::FeatureView& feature);
  void addNumber(const std::string& name, const host::FeatureView& feature);
  void addSwitches(const std::string& feature, const std::string& thing);
  std::vector<Switch> switchesOf(const std::string& thing, bool isHardware) const;
  std::string obstacleOf(const std::string& thing, const std::vector<Switch>& switches);
  std::vector<Switch> withUsableNames(const std::vector<Switch>& switches);
  void lose(const std::string& what, const std::string& reason);
  std::vector<PageSize> sizesOf(const host::FeatureView& feature);
  void writePageSizes(const std::vector<PageSize>& sizes, const std::string& usual);
  void writeList(const std::string& name, const std::vector<NamedChoice>& choices,
                 const std::string& current, const std::string& textsOf);
  void open(const std::string& name, const std::string& value, const std::string& textOf,
            const char* type = "PickOne");

  template <class... Texts>
  void line(const Texts&... texts) {
    ((text_ += texts), ...) += '\n';
  }

  const host::Model& model_;
  std::vector<std::string>& losses_;
  const std::vector<host::Panel>& panels_;
  MadeTexts texts_;
  MadeOptions options_;
  std::string text_;
  std::set<std::string> names_;  // Of options, with small letters.
  std::string usualSize_;
  std::unordered_map<std::string, host::MediaSize> media_;  // By the options' names.
  std::unordered_set<std::string> hardware_;                // Names of features.
  std::unordered_set<std::string> placed_;                  // Those that are in a group.
  std::unordered_set<std::string> switches_;                // Those that are done.
};

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_MADE_OPTIONS_H_
