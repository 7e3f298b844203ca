// The abstract interface of the master feature set, which a host receives
// from GetMasterFeatureList().
//
// Hosts call these operations through the virtual table, so the order of the
// declarations is a binary contract: a new operation may only be added at the
// end, and none may be moved, removed or given another signature. No slot
// holds a destructor; the set lives as long as the process.
#ifndef MODEL_CORE_FEATURE_SET_H_
#define MODEL_CORE_FEATURE_SET_H_

#include <string>

#include "model/core_feature.h"

class DriverFeature;        // An IntermediateCoreFeature, its only base.
class DriverFeatureOption;  // An IntermediateCoreOption, its only base.

class CoreFeatureSet {
 public:
  // Slot 0. Prints the whole model on standard output.
  virtual void dumpFeatureListValues() = 0;

  // Slot 1. Number of features; groups are not counted.
  virtual int fetchNumberOfFeatures() = 0;

  // Slot 2. The feature at a position in ascending byte order of the names;
  // null when there is none.
  virtual DriverFeature* fetchFeatureByIndex(int index) = 0;

  // Slot 3. The feature, else the static group, else the dynamic group of
  // that name; null after a level 3 line when there is none.
  virtual CoreFeature* FindFeatureInFeatureList(const std::string& name) = 0;

  // Slot 4. The first feature whose text property `attribute` holds `value`;
  // null after a level 4 line when there is none.
  virtual CoreFeature* FindFeatureInFeatureList(const std::string& attribute,
                                                const std::string& value) = 0;

  // Slot 5. Does nothing and always returns null.
  virtual DriverFeatureOption* CreateOptionForFeature(const std::string& featureName,
                                                      const std::string& optionName,
                                                      int number) = 0;

  // Slot 6. Writes the current values as printer-ready output: `pdlType` 0 is
  // PJL, 1 PostScript, 2 a job ticket. `includeInstOpt` lets the ticket use
  // the names of installable options; the last two texts are handed on to the
  // ticket writer. All three are ignored for PJL and PostScript. Any other
  // type is logged at level 2 and leaves `output` alone. A routine of the host
  // that throws, or a lack of memory, leaves `output` empty, and the exception
  // goes on to the caller.
  virtual void serialize(std::string& output, int pdlType, bool includeInstOpt,
                         const char* ticketArgument1, const char* ticketArgument2) = 0;

  // Slot 7. Sets every feature's current value to its default value, then
  // calls the host's update callback once.
  virtual void restoreDefaultFeatureValues() = 0;

 protected:
  ~CoreFeatureSet() = default;
};

#endif  // MODEL_CORE_FEATURE_SET_H_
