#include "host/shell/value_commands.h"

#include "host/log_printer.h"
#include "host/settings.h"
#include "host/shell/names.h"
#include "host/shell/properties.h"
#include "host/show.h"
#include "host/show_details.h"
#include "host/table.h"
#include "host/value_safety.h"

namespace driver_feature {

namespace {

// The word that stands for every property.
constexpr const char* kAll = "all";

Refusal setChecked(Shell& shell, const Setting& setting) {
  if (Refusal refusal = checkSetting(shell.model(), setting)) return refusal;
  if (shell.model().features.at(setting.name).setValue(setting.value)) return std::nullopt;
  return "the library refuses the value " + quoted(setting.value) + " of feature " +
         quoted(setting.name) + "; \"log all\" shows why";
}

Refusal getValue(Shell& shell, const std::string& name) {
  CoreFeature* object = nullptr;
  if (Refusal refusal = findObject(shell, name, object)) return refusal;
  const auto feature = shell.model().features.find(name);
  if (feature == shell.model().features.end()) {
    return quoted(name) + " is a group and holds no value; name a property, or \"all\" of them";
  }
  if (!feature->second.hasValue()) {
    return quoted(name) + " is a " + feature->second.typeName() +
           " feature and holds no value; name a property, or \"all\" of them";
  }
  shell.answer(currentValueWord(feature->second) + "\n");
  return std::nullopt;
}

// What the library does not give back is left out.
void getAll(Shell& shell, CoreFeature& object) {
  const LogSilence silence;
  std::vector<TableRow> rows;
  for (const std::string& property : propertyNames()) {
    std::string text;
    if (!readProperty(object, property, text)) rows.push_back({{property}, {quoteWord(text)}});
  }
  shell.answer(layOut(rows, 0));
}

}  // namespace

Refusal runSet(Shell& shell, const Words& arguments) {
  if (arguments.size() == 2) return setChecked(shell, {arguments[0], arguments[1]});
  CoreFeature* object = nullptr;
  if (Refusal refusal = findObject(shell, arguments[0], object)) return refusal;
  if (Refusal refusal =
          refuseUnsafeProperty(shell.model(), arguments[0], arguments[1], arguments[2])) {
    return refusal;
  }
  return writeProperty(*object, arguments[1], arguments[2]);
}

Refusal runGet(Shell& shell, const Words& arguments) {
  if (arguments.size() == 1) return getValue(shell, arguments[0]);
  CoreFeature* object = nullptr;
  if (Refusal refusal = findObject(shell, arguments[0], object)) return refusal;
  if (arguments[1] == kAll) {
    getAll(shell, *object);
    return std::nullopt;
  }
  std::string text;
  if (Refusal refusal = readProperty(*object, arguments[1], text)) return refusal;
  shell.answer(quoteWord(text) + "\n");
  return std::nullopt;
}

Refusal runShow(Shell& shell, const Words& arguments) {
  const Model& model = shell.model();
  CoreFeatureSet& set = shell.session().features();
  if (arguments.empty()) {
    shell.answer(showTable(model, set, shell.width()));
    return std::nullopt;
  }
  const std::string& name = arguments.front();
  if (Refusal refusal = refuseDetails(model, name)) return refusal;
  shell.answer(detailsText(model, set, name, shell.width()));
  return std::nullopt;
}

Proposals proposeSet(const Shell& shell, const Words& before, const std::string& /*word*/) {
  if (before.empty()) return {allNames(shell.model())};
  if (before.size() == 2)
    return {typeOfProperty(before[1]) == PropertyType::kBool
                ? std::vector<std::string>{"false", "true"}
                : optionNames(shell.model(), before[0])};
  std::vector<std::string> words = optionNames(shell.model(), before[0]);
  words.insert(words.end(), propertyNames().begin(), propertyNames().end());
  return {words};
}

Proposals proposeGet(const Shell& shell, const Words& before, const std::string& /*word*/) {
  if (before.empty()) return {allNames(shell.model())};
  std::vector<std::string> words = propertyNames();
  words.emplace_back(kAll);
  return {words};
}

Proposals proposeShow(const Shell& shell, const Words& /*before*/, const std::string& /*word*/) {
  return {allNames(shell.model())};
}

}  // namespace driver_feature
