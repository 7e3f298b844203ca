#include "bench/library_operations.h"

#include "bench/loaded_model.h"
#include "frame/exports.h"

namespace driver_feature::bench {

void addOperations(Operations& operations) {
  addLoading(operations);
  addReading(operations);
  addWriting(operations);
  addOptionLookUp(operations);
  addNotification(operations);
  addSerialization(operations);
  addRestoring(operations);
  addRecords(operations);
  addDump(operations);
  addLongLists(operations);
  addHandWritten(operations);
  addImported(operations);
}

std::string textOfRealModel(int number) {
  std::string output;
  useModel("real_xml", number).serialize(output, 1, false, "", "");
  return output;
}

std::string textOfModel(int size) {
  DriverFeatureSet& set = useModel(kPSCarrier.kind, size);
  for (int i = 0; i < size; i += 3) {
    std::string name = featureName(i);
    SetFeatureTextValue(name, "ValueString", choiceName(2));
  }
  std::string output;
  set.serialize(output, 1, false, "", "");
  return output;
}

}  // namespace driver_feature::bench
