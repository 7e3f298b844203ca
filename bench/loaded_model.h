// Models of the library, loaded from the generated files.
#ifndef BENCH_LOADED_MODEL_H_
#define BENCH_LOADED_MODEL_H_

#include <memory>
#include <string>

#include "bench/generated_model.h"
#include "frame/driver_feature_set.h"

#include "AttributeMap.h"
#include "XMLDocument.h"

namespace driver_feature::bench {

// Reads a file of a model. Ends the program when that fails.
std::unique_ptr<XMLDocument> readModel(const std::string& path);

// Drops all log lines. They are still composed.
void keepNoLog();

// Makes an empty set the master set.
void startEmptySet();

// Builds a document's model into the master set. Ends the program when that
// fails.
void build(const XMLDocument& document);

// Deletes the features and options of the master set, and the set. A host
// cannot do so; the measurements do, to keep their memory.
void deleteSet();

// Makes the model of that kind and size, loaded once and kept, the master set.
DriverFeatureSet& useModel(const std::string& kind, int size);

// The features of one type in a typed model.
inline constexpr int kIntNumber = 0;
inline constexpr int kFloatNumber = 1;
inline constexpr int kTextNumber = 2;
inline NamesInTurn namesOfType(int size, int type) {
  return NamesInTurn(size, type, 3);
}

// Makes the library write all of the next PostScript or PJL anew, by storing a
// text in an option of no feature.
void makeTextsOld();

// The values of a record of the description with records, and of the one with
// records of five members.
AttributeMap recordValues(int number);
AttributeMap fiveMemberValues(int number);

// How often the update callback and the change routine have been called.
struct Calls {
  long updates = 0;
  long changes = 0;
};
extern Calls calls;

}  // namespace driver_feature::bench

#endif  // BENCH_LOADED_MODEL_H_
