// Writes all features and static groups of a set.
//
// What cannot be written is logged and left out. Routines of the host may change
// the set meanwhile: its features and groups are counted again at each step.
#ifndef OUTPUT_SERIALIZATION_H_
#define OUTPUT_SERIALIZATION_H_

#include <string>

#include "model/core_feature_set.h"
#include "model/feature_list.h"
#include "output/text_dialect.h"

class DriverFeatureSet;

namespace driver_feature {

struct OutputSource {
  // Features are counted and fetched through these operations, which a host may
  // have replaced.
  CoreFeatureSet& features;
  const FeatureList& groups;
  DriverFeatureSet* set;  // The same set, as routines of the host get it.
};

// Replaces `output` by the text in the dialect's language. Routines of features
// get `output` itself, with the text up to their feature.
void writeText(const OutputSource& source, const TextDialect& dialect, std::string& output);

// Hands `output` to the ticket writer when the ticket is complete, and leaves it
// alone until then. The arguments are the writer's.
void writeTicket(const OutputSource& source, bool includeInstOpt, const char* argument1,
                 const char* argument2, std::string& output);

}  // namespace driver_feature

#endif  // OUTPUT_SERIALIZATION_H_
