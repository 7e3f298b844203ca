// Routines as what they are looked up as: which names are not those of routines,
// and which routine was meant.

#include <algorithm>
#include <array>
#include <string_view>

#include "host/check/rules.h"
#include "host/session/routine_look_up.h"

namespace driver_feature::check {

namespace {

constexpr std::array<std::string_view, 7> kAttributes = {
    "DefaultCallbackHandler", "LoadVORNCallbackHandler", "AddCallbackRoutine",
    "AddPJLCallbackRoutine",  "AddPSCallbackRoutine",    "AddVORNCallbackRoutine",
    "SortFunctionName"};

}  // namespace

void forEachRoutineName(const host::Element& description,
                        const std::function<void(const host::Element& element,
                                                 const host::Attribute& attribute)>& visit) {
  forEachElement(description, [&visit](const host::Element& element) {
    for (const host::Attribute& attribute : element.attributes) {
      const bool names =
          std::find(kAttributes.begin(), kAttributes.end(), attribute.name) != kAttributes.end();
      if (names && !attribute.value.empty()) visit(element, attribute);
    }
  });
}

void checkRoutineKinds(const host::Element& description, Findings& findings) {
  forEachRoutineName(
      description, [&findings](const host::Element& element, const host::Attribute& attribute) {
        const std::string objection = objectionTo(host::lookUpRoutine(attribute.value));
        if (objection.empty()) return;
        findings.push_back({Code::kNotARoutine,
                            attribute.position,
                            "\"" + attribute.value + "\", the " + attribute.name + " of " +
                                describeElement(element) + ", " + objection,
                            "name a function of a library given with --callbacks",
                            {}});
      });
}

std::string missingRoutineRemedy(const std::string& name) {
  if (const auto function = host::mangledRoutine(name)) {
    return "declare the C++ function " + *function + " as extern \"C\", so that it has this name";
  }
  return didYouMean(name, host::routineNames(),
                    "correct the name or give the library that has the routine with --callbacks");
}

}  // namespace driver_feature::check
