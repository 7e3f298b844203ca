// The records of a dynamic group.
#ifndef MODEL_DYNAMIC_RECORD_H_
#define MODEL_DYNAMIC_RECORD_H_

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "model/driver_feature.h"
#include "model/name_index.h"

namespace driver_feature {

// Frees a copy of a feature with the options that were copied for it.
struct FreeCopy {
  void operator()(DriverFeature* copy) const;
};
using FeatureCopy = std::unique_ptr<DriverFeature, FreeCopy>;

// One value of a record. It never changes, so that the copy of the template's
// feature that has made it is needed no longer.
struct DynamicRecordMember {
  std::string name;
  std::string value;  // Its "ValueString".
  // The copy, where reading its value logs a line each time; else null.
  FeatureCopy copy;

  // The value, as if it was read anew. False when it cannot be read.
  bool read(std::string& text) const;
};

// What was added to the dynamic group, in the order of the template. The group
// holds it by a plain pointer, of which many can be moved at once.
class DynamicRecord {
 public:
  // Takes away one holder, of which a new record has one, and frees the record
  // with the last.
  static void release(DynamicRecord* record) {
    if (--record->holders_ == 0) delete record;
  }

  void reserve(std::size_t count) { members_.reserve(count); }
  void add(FeatureCopy copy);
  const std::vector<DynamicRecordMember>& members() const { return members_; }

  // The first member of that name, or null.
  const DynamicRecordMember* find(const std::string& name);

 private:
  std::vector<DynamicRecordMember> members_;
  friend class HeldRecord;

  int holders_ = 1;
  NameIndex names_;  // Of the members that have been searched, when there are many.
};

// Holds a record. Whoever uses one while code of the host may run holds it, since
// the host may remove it.
class HeldRecord {
 public:
  explicit HeldRecord(DynamicRecord* record) : record_(record) {
    if (record_ != nullptr) ++record_->holders_;
  }
  ~HeldRecord() {
    if (record_ != nullptr) DynamicRecord::release(record_);
  }
  HeldRecord(const HeldRecord&) = delete;
  HeldRecord& operator=(const HeldRecord&) = delete;

  DynamicRecord* operator->() const { return record_; }
  DynamicRecord& operator*() const { return *record_; }
  explicit operator bool() const { return record_ != nullptr; }

 private:
  DynamicRecord* record_;
};

}  // namespace driver_feature

#endif  // MODEL_DYNAMIC_RECORD_H_
