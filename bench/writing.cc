// The cost of writing one value by name, with a change and without.

#include <array>
#include <utility>

#include "bench/library_operations.h"
#include "bench/loaded_model.h"
#include "frame/exports.h"

namespace driver_feature::bench {

namespace {

// Writes `first` to all features and then `second`; the same twice is a write
// without a change.
template <class Value, class Function>
Step writing(NamesInTurn names, const char* property, Function* function, Value first,
             Value second) {
  return {
      [names = std::move(names), property, function, values = std::array{first, second}]() mutable {
        const Value& value = values[names.rounds() % 2];
        function(names.next(), property, value);
      }};
}

template <class Value, class Function>
void addWritingOf(Operations& operations, const char* operation, Function* function,
                  const char* property, int type, Value first, Value second) {
  operations.push_back(
      {operation, kFeatureCounts, [function, property, type, first, second](int size) {
         useModel("typed", size);
         return writing(namesOfType(size, type), property, function, first, second);
       }});
}

void addChoosing(Operations& operations, const char* operation, int first, int second) {
  operations.push_back({operation, kFeatureCounts, [first, second](int size) {
                          useModel(kPSCarrier.kind, size);
                          return writing(NamesInTurn(size), "ValueString", SetFeatureTextValue,
                                         choiceName(first), choiceName(second));
                        }});
}

}  // namespace

void addWriting(Operations& operations) {
  addChoosing(operations, "change choice", 1, 3);
  addChoosing(operations, "write the same choice", 2, 2);
  addWritingOf(operations, "change int", SetFeatureIntValue, "CurrentIntValue", kIntNumber, 5, 6);
  addWritingOf(operations, "change float", SetFeatureFloatValue, "CurrentFloatValue", kFloatNumber,
               0.5F, 2.5F);
  addWritingOf(operations, "write bool", SetFeatureBoolValue, "Sensitivity", kIntNumber, true,
               true);
  addWritingOf(operations, "change text", SetFeatureTextValue, "CurrentTextValue", kTextNumber,
               std::string("one text of thirty characters."),
               std::string("another text, and thirty, too."));
}

}  // namespace driver_feature::bench
