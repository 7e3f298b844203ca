// Gives the features the values that a job asks for.
#ifndef PROGRAMS_FILTER_JOB_SETTINGS_H_
#define PROGRAMS_FILTER_JOB_SETTINGS_H_

#include <map>
#include <string>
#include <vector>

#include "host/ppd/plain/queue_ppd.h"
#include "host/settings/rule_keeping.h"
#include "host/settings/setting.h"
#include "programs/filter/arguments.h"
#include "programs/filter/page_work.h"
#include "programs/filter/queue.h"

namespace driver_feature::filter {

class JobSettings {
 public:
  // `ppd` may be null. All must outlive this object.
  JobSettings(const host::Session& session, ppd::QueuePpd* ppd, const Queue& queue, PageWork& pages)
      : model_(session.model()),
        ppd_(ppd),
        refusedValue_(queue.refusedValue),
        rules_(queue.rules),
        keeper_(session, "a queue made with --resolve changes "),
        pages_(pages),
        isDirect_(ppd != nullptr && !ppd->attributes("DriverFeatureDirect").empty()) {}

  // Applies the queue's defaults, the job's options and its copies, in that
  // order. Features with the keys "job-name" and "user-name" get the job's.
  //
  // An option is one of the PPD, or a feature by its name or its "CLOKey", or
  // one that libcups turns into choices of the PPD, or one for the pages. Others
  // are ignored. For a value that must be refused, an ERROR line says why, and
  // false is returned; or a WARNING line says why, and the queue's default is
  // used, when the queue says so. The same for values that the rules of the
  // description forbid together; or a WARNING line says what was changed.
  bool apply(const FilterArguments& arguments);

  // Whether a feature has taken the copies, so that its commands make them.
  bool takesCopies() const { return !copiesFeature_.empty(); }

  // How many copies the features' commands make, or `asked` without such a
  // feature.
  int copiesMade(int asked) const;

  // Marks in the PPD the job's final values, including those that it has set on
  // features directly.
  void markAll();

 private:
  // A value for a feature.
  struct Wish {
    std::string option;  // The job's option that asks for it; empty for a default.
    host::Setting setting;
    std::string reason;  // Why it was refused.
  };

  void sort(const host::Setting& option);
  void sortDirect(const host::Setting& option);
  bool sortByKey(const host::Setting& option);
  void sortChoice(const host::Setting& option, const std::string& keyword);
  void sortUnknown(const host::Setting& option);
  void wish(const std::string& option, const host::Setting& setting);
  void leaveToPages(const host::Setting& setting);
  bool asksFor(const std::string& name) const;
  bool settlePages();
  std::string copiesFeature() const;
  void addCopies(int copies);
  bool isSizeChosen(const std::string& unset) const;
  void leaveSizeUnset();
  void addDefault(const std::string& key, const std::string& value);
  bool isAsked(const std::string& feature) const;
  bool takesMarks() const { return ppd_ != nullptr && !isDirect_; }
  std::vector<Wish> collect();
  std::vector<Wish> marked();
  bool isMarkedBy(const std::vector<host::Setting>& options, const host::Setting& setting) const;
  std::string translated(const host::Setting& setting) const;
  std::vector<Wish> settle(std::vector<Wish> wishes) const;
  bool isDone(Wish& wish) const;
  void refuse(const std::string& option, const std::string& reason);
  bool drop(const std::string& option);
  bool keepRules();
  void noteAsked();

  const host::Model& model_;
  ppd::QueuePpd* ppd_;
  RefusedValue refusedValue_;
  host::RuleConduct rules_;
  host::RuleKeeper keeper_;
  PageWork& pages_;
  bool isDirect_;                               // The PPD's marks do not set features.
  const FilterArguments* arguments_ = nullptr;  // Of the job that is applied.
  std::string copiesFeature_;                   // Empty without one.
  bool hasFailed_ = false;
  std::vector<host::Setting> forPpd_;         // Options for libcups to mark.
  std::map<std::string, std::string> named_;  // Keywords of the PPD to the job's options.
  std::vector<Wish> wishes_;                  // What the job asks of features directly.
};

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_JOB_SETTINGS_H_
