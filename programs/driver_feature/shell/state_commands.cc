#include "programs/driver_feature/shell/state_commands.h"

#include "host/base/text.h"

#include "AttributeMap.h"

#include "programs/driver_feature/shell/names.h"

namespace driver_feature::cli {

namespace {

// The named features, or all of them.
host::Result<> readNames(Shell& shell, const Words& words, AttributeMap& names) {
  for (const std::string& name : words) {
    IntermediateCoreFeature* feature = nullptr;
    if (host::Result<> done = findFeature(shell, name, feature); !done) return done;
    names[name];
  }
  if (!words.empty()) return {};
  for (const std::string& name : featureNames(shell.model())) names[name];
  return {};
}

// What the commands about constraints name.
struct Constraint {
  std::string feature;
  std::string option;
  IntermediateCoreFeature* owner = nullptr;
  IntermediateCoreOption* object = nullptr;
  long id = 0;
};

host::Result<> readConstraint(Shell& shell, const Words& arguments, Constraint& constraint) {
  constraint.feature = arguments[0];
  constraint.option = arguments[1];
  if (host::Result<> done = findFeature(shell, arguments[0], constraint.owner); !done) return done;
  if (host::Result<> done = findOption(shell, arguments[0], arguments[1], constraint.object); !done)
    return done;
  return readNumber(arguments[2], "the number of a constraint", constraint.id);
}

Shell::OptionFlags flagsOf(IntermediateCoreOption& option) {
  Shell::OptionFlags flags;
  option.getOptionProperty(std::string("Sensitivity"), &flags.available);
  option.getOptionProperty(std::string("Visibility"), &flags.visible);
  return flags;
}

}  // namespace

host::Result<> runSave(Shell& shell, const Words& arguments) {
  AttributeMap names;
  if (host::Result<> done = readNames(shell, arguments, names); !done) return done;
  shell.session().save(names);
  return {};
}

host::Result<> runRestore(Shell& shell, const Words& arguments) {
  AttributeMap names;
  if (host::Result<> done = readNames(shell, arguments, names); !done) return done;
  shell.session().restore(names);
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
  Constraint constraint;
  if (host::Result<> done = readConstraint(shell, arguments, constraint); !done) return done;
  const Shell::OptionFlags before = flagsOf(*constraint.object);
  if (!constraint.owner->applyOptionConstraint(constraint.option, constraint.id, hide)) {
    return host::refused("the library refuses to constrain option " +
                         host::inQuotes(constraint.option) + "; make another option of " +
                         host::inQuotes(constraint.feature) + " available first");
  }
  // Keeps what an earlier constraint has found.
  shell.constrainedOptions().insert({{constraint.feature, constraint.option}, before});
  return {};
}

host::Result<> runRelease(Shell& shell, const Words& arguments) {
  Constraint constraint;
  if (host::Result<> done = readConstraint(shell, arguments, constraint); !done) return done;
  if (!constraint.object->removeConstraint(constraint.id)) {
    return host::refused("no constraint " + arguments[2] + " holds option " +
                         host::inQuotes(constraint.option) + "; give the number of one that does");
  }
  if (!constraint.object->isConstraintSetEmpty()) return {};
  Shell::OptionFlags flags;
  const auto known = shell.constrainedOptions().find({constraint.feature, constraint.option});
  if (known != shell.constrainedOptions().end()) {
    flags = known->second;
    shell.constrainedOptions().erase(known);
  }
  constraint.object->setOptionProperty(std::string("Sensitivity"), flags.available);
  constraint.object->setOptionProperty(std::string("Visibility"), flags.visible);
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
