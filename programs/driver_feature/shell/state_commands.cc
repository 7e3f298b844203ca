#include "programs/driver_feature/shell/state_commands.h"

#include "host/base/text.h"

#include "AttributeMap.h"

#include "programs/driver_feature/shell/names.h"

namespace driver_feature::cli {

namespace {

// The named features, or all of them.
host::Result<AttributeMap> readNames(Shell& shell, const Words& words) {
  AttributeMap names;
  for (const std::string& name : words) {
    if (auto feature = findFeature(shell, name); !feature) return failureOf(feature);
    names[name];
  }
  if (!words.empty()) return names;
  for (const std::string& name : featureNames(shell.model())) names[name];
  return names;
}

// What the commands about constraints name.
struct Constraint {
  std::string feature;
  std::string option;
  IntermediateCoreFeature* owner;
  IntermediateCoreOption* object;
  long id;
};

host::Result<Constraint> readConstraint(Shell& shell, const Words& arguments) {
  auto owner = findFeature(shell, arguments[0]);
  if (!owner) return failureOf(owner);
  auto option = findOption(shell, arguments[0], arguments[1]);
  if (!option) return failureOf(option);
  auto id = readNumber(arguments[2], "the number of a constraint");
  if (!id) return failureOf(id);
  return Constraint{arguments[0], arguments[1], *owner, *option, *id};
}

Shell::OptionFlags flagsOf(IntermediateCoreOption& option) {
  Shell::OptionFlags flags;
  option.getOptionProperty(std::string("Sensitivity"), &flags.available);
  option.getOptionProperty(std::string("Visibility"), &flags.visible);
  return flags;
}

}  // namespace

host::Result<> runSave(Shell& shell, const Words& arguments) {
  auto names = readNames(shell, arguments);
  if (!names) return failureOf(names);
  shell.session().save(*names);
  return {};
}

host::Result<> runRestore(Shell& shell, const Words& arguments) {
  auto names = readNames(shell, arguments);
  if (!names) return failureOf(names);
  shell.session().restore(*names);
  return {};
}

host::Result<> runDefaults(Shell& shell, const Words& /*arguments*/) {
  shell.session().features().restoreDefaultFeatureValues();
  return {};
}

host::Result<> runConstrain(Shell& shell, const Words& arguments) {
  const bool hide = arguments.size() == 4;
  if (hide && arguments[3] != "hide") {
    return host::refused(host::inQuotes(arguments[3]) +
                         " is not expected; write \"hide\" or nothing");
  }
  auto constraint = readConstraint(shell, arguments);
  if (!constraint) return failureOf(constraint);
  const Shell::OptionFlags before = flagsOf(*constraint->object);
  if (!constraint->owner->applyOptionConstraint(constraint->option, constraint->id, hide)) {
    return host::refused("the library refuses to constrain option " +
                         host::inQuotes(constraint->option) + "; make another option of " +
                         host::inQuotes(constraint->feature) + " available first");
  }
  // Keeps what an earlier constraint has found.
  shell.constrainedOptions().insert({{constraint->feature, constraint->option}, before});
  return {};
}

host::Result<> runRelease(Shell& shell, const Words& arguments) {
  auto constraint = readConstraint(shell, arguments);
  if (!constraint) return failureOf(constraint);
  if (!constraint->object->removeConstraint(constraint->id)) {
    return host::refused("no constraint " + arguments[2] + " holds option " +
                         host::inQuotes(constraint->option) + "; give the number of one that does");
  }
  if (!constraint->object->isConstraintSetEmpty()) return {};
  Shell::OptionFlags flags;
  const auto known = shell.constrainedOptions().find({constraint->feature, constraint->option});
  if (known != shell.constrainedOptions().end()) {
    flags = known->second;
    shell.constrainedOptions().erase(known);
  }
  constraint->object->setOptionProperty(std::string("Sensitivity"), flags.available);
  constraint->object->setOptionProperty(std::string("Visibility"), flags.visible);
  return {};
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

}  // namespace driver_feature::cli
