#include "host/shell/state_commands.h"

#include "AttributeMap.h"

#include "host/shell/names.h"

namespace driver_feature {

namespace {

// The named features, or all of them.
Refusal readNames(Shell& shell, const Words& words, AttributeMap& names) {
  for (const std::string& name : words) {
    IntermediateCoreFeature* feature = nullptr;
    if (Refusal refusal = findFeature(shell, name, feature)) return refusal;
    names[name];
  }
  if (!words.empty()) return std::nullopt;
  for (const std::string& name : featureNames(shell.model())) names[name];
  return std::nullopt;
}

// What the commands about constraints name.
struct Constraint {
  std::string feature;
  std::string option;
  IntermediateCoreFeature* owner = nullptr;
  IntermediateCoreOption* object = nullptr;
  long id = 0;
};

Refusal readConstraint(Shell& shell, const Words& arguments, Constraint& constraint) {
  constraint.feature = arguments[0];
  constraint.option = arguments[1];
  if (Refusal refusal = findFeature(shell, arguments[0], constraint.owner)) return refusal;
  if (Refusal refusal = findOption(shell, arguments[0], arguments[1], constraint.object)) {
    return refusal;
  }
  return readNumber(arguments[2], "number of a constraint", constraint.id);
}

Shell::OptionFlags flagsOf(IntermediateCoreOption& option) {
  Shell::OptionFlags flags;
  option.getOptionProperty(std::string("Sensitivity"), &flags.available);
  option.getOptionProperty(std::string("Visibility"), &flags.visible);
  return flags;
}

}  // namespace

Refusal runSave(Shell& shell, const Words& arguments) {
  AttributeMap names;
  if (Refusal refusal = readNames(shell, arguments, names)) return refusal;
  shell.session().save(names);
  return std::nullopt;
}

Refusal runRestore(Shell& shell, const Words& arguments) {
  AttributeMap names;
  if (Refusal refusal = readNames(shell, arguments, names)) return refusal;
  shell.session().restore(names);
  return std::nullopt;
}

Refusal runDefaults(Shell& shell, const Words& /*arguments*/) {
  shell.session().features().restoreDefaultFeatureValues();
  return std::nullopt;
}

Refusal runConstrain(Shell& shell, const Words& arguments) {
  const bool hide = arguments.size() == 4;
  if (hide && arguments[3] != "hide") {
    return quoted(arguments[3]) + " is not expected; write \"hide\" or nothing";
  }
  Constraint constraint;
  if (Refusal refusal = readConstraint(shell, arguments, constraint)) return refusal;
  const Shell::OptionFlags before = flagsOf(*constraint.object);
  if (!constraint.owner->applyOptionConstraint(constraint.option, constraint.id, hide)) {
    return "the library refuses to constrain option " + quoted(constraint.option) +
           "; make another option of " + quoted(constraint.feature) + " available first";
  }
  // Keeps what an earlier constraint has found.
  shell.constrainedOptions().insert({{constraint.feature, constraint.option}, before});
  return std::nullopt;
}

Refusal runRelease(Shell& shell, const Words& arguments) {
  Constraint constraint;
  if (Refusal refusal = readConstraint(shell, arguments, constraint)) return refusal;
  if (!constraint.object->removeConstraint(constraint.id)) {
    return "no constraint " + arguments[2] + " holds option " + quoted(constraint.option) +
           "; give the number of one that does";
  }
  if (!constraint.object->isConstraintSetEmpty()) return std::nullopt;
  Shell::OptionFlags flags;
  const auto known = shell.constrainedOptions().find({constraint.feature, constraint.option});
  if (known != shell.constrainedOptions().end()) {
    flags = known->second;
    shell.constrainedOptions().erase(known);
  }
  constraint.object->setOptionProperty(std::string("Sensitivity"), flags.available);
  constraint.object->setOptionProperty(std::string("Visibility"), flags.visible);
  return std::nullopt;
}

Proposals proposeFeatures(const Shell& shell, const Words& /*before*/,
                          const std::string& /*word*/) {
  return {featureNames(shell.model())};
}

Proposals proposeRelease(const Shell& shell, const Words& before, const std::string& /*word*/) {
  if (before.size() == 1) return {optionNames(shell.model(), before[0])};
  return before.empty() ? Proposals{namesWithOptions(shell.model())} : Proposals{};
}

Proposals proposeConstrain(const Shell& shell, const Words& before, const std::string& word) {
  if (before.size() == 3) return {{"hide"}};
  return proposeRelease(shell, before, word);
}

}  // namespace driver_feature
