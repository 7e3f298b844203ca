// The set as PostScript and PJL: what each object's command makes of its
// value.
#include <algorithm>
#include <cstdlib>

#include "fuzz/c_library.h"
#include "fuzz/operations/names.h"
#include "fuzz/operations/reference_model.h"
#include "fuzz/template_reading.h"

namespace driver_feature::operations {

namespace {

using fuzz::Grammar;
using fuzz::printed;
using fuzz::readTemplate;

// The C library's formatter ends at a NUL, values may hold some. Width and
// precision are those of names.h: at most one of the two.
std::string convertText(const std::string& conversion, const std::string& value) {
  if (conversion[1] == '.') {
    return value.substr(0, static_cast<std::size_t>(std::atoi(conversion.c_str() + 2)));
  }
  const int width = std::atoi(conversion.c_str() + 1);
  const auto least = static_cast<std::size_t>(std::abs(width));
  if (value.size() >= least) return value;
  const std::string blanks(least - value.size(), ' ');
  return width < 0 ? value + blanks : blanks + value;
}

std::string expandText(const std::string& commandTemplate, const std::string& value) {
  std::string text;
  for (std::size_t i = 0; i < commandTemplate.size(); ++i) {
    if (commandTemplate[i] != '%') {
      text += commandTemplate[i];
    } else if (commandTemplate[i + 1] == '%') {
      text += commandTemplate[++i];
    } else {
      const std::size_t end = commandTemplate.find('s', i);
      text += convertText(commandTemplate.substr(i, end - i + 1), value);
      i = end;
    }
  }
  return text;
}

}  // namespace

bool ReferenceModel::callTextRoutine(const std::string& name, std::string& text) {
  if (name != kTextRoutineName) return false;
  host_.write(text);
  return true;
}

std::string ReferenceModel::valueText(RefObject& object, const std::string& commandTemplate,
                                      const std::string& language) {
  const std::string operation = "createTicketPDLAttributes() - ";
  const auto refused = [&](const Grammar& grammar) {
    if (readTemplate(commandTemplate, grammar).isTaken) return false;
    log(3, operation + "Cannot format value with command template \"" + commandTemplate + '"');
    return true;
  };
  std::string text;
  if (object.type == 1) {
    const RefOption* option = currentOption(object);
    if (option == nullptr) {
      log(2, operation + "Cannot get current feature option");
    } else if (!refused(fuzz::kTextGrammar)) {
      text = expandText(commandTemplate, option->texts.at(language + "Command"));
    }
  } else if (object.type == 2) {
    int value = 0;
    if (!getInt(object, "CurrentIntValue", value)) {
      log(2, operation + "Cannot get feature int value");
    } else if (!refused(fuzz::kIntegerGrammar)) {
      text = printed(readTemplate(commandTemplate, fuzz::kIntegerGrammar).forPrintf, value);
    }
  } else if (object.type == 3) {
    std::string value;
    if (!getText(object, "CurrentTextValue", value)) {
      log(2, operation + "Cannot get feature text value");
    } else if (!refused(fuzz::kTextGrammar)) {
      text = expandText(commandTemplate, value);
    }
  } else if (object.type == 4) {
    float value = 0;
    if (!getFloat(object, "CurrentFloatValue", value)) {
      log(2, operation + "Cannot get feature float value");
    } else if (!refused(fuzz::kFloatGrammar)) {
      text = printed(readTemplate(commandTemplate, fuzz::kFloatGrammar).forPrintf,
                     static_cast<double>(value));
    }
  } else {
    log(2, operation + "Feature has an invalid feature type");
  }
  return text;
}

void ReferenceModel::writeMember(RefObject& group, RefObject& member, int index,
                                 const std::string& language, std::string& piece) {
  const std::string operation = "process" + language + "StaticGroup() - ";
  std::string commandTemplate;
  getText(member, language + "Command", commandTemplate);
  if (!commandTemplate.empty()) {
    piece = valueText(member, commandTemplate, language);
    return;
  }
  log(4, operation + "Cannot get " + language + " command for feature " + std::to_string(index) +
             " - will look for callback");
  std::string routine;
  getText(language == "PS" ? member : group, "Add" + language + "CallbackRoutine", routine);
  if (!routine.empty() && !callTextRoutine(routine, piece)) {
    log(2, operation + "Cannot load " + language + " Command callback: " + routine);
  }
  if (language == "PJL") piece = valueText(member, "", language);
}

std::string ReferenceModel::groupText(RefObject& group, const std::string& language, bool topLevel,
                                      std::vector<RefObject*> around) {
  const std::string operation = "process" + language + "StaticGroup() - ";
  std::string output;
  if (std::find(around.begin(), around.end(), &group) != around.end()) return output;
  if (group.type != 6 || group.kind != RefClass::kStaticGroup) {
    log(4, operation + "Static group is not a standard static group");
    return output;
  }
  if (group.flags["FeatureInGroup"] && topLevel) {
    log(4, operation + "Static group is in a group");
    return output;
  }
  const std::string commandTemplate = group.texts[language + "Command"];
  if (commandTemplate.empty()) {
    const std::string routine = group.texts["Add" + language + "CallbackRoutine"];
    if (!routine.empty() && !callTextRoutine(routine, output)) {
      log(2, operation + "Cannot load " + language + " Command callback: " + routine);
    }
    return output;
  }
  around.push_back(&group);
  std::string collected;
  for (std::size_t i = 0; i < group.members.size(); ++i) {
    RefObject& member = *group.members[i];
    std::string piece;
    if (member.type == 6) {
      piece = groupText(member, language, false, around);
    } else {
      writeMember(group, member, static_cast<int>(i), language, piece);
    }
    collected += piece;
  }
  if (readTemplate(commandTemplate, fuzz::kTextGrammar).isTaken) {
    return expandText(commandTemplate, collected);
  }
  log(3, operation + "Cannot format text with command template \"" + commandTemplate + '"');
  return output;
}

void ReferenceModel::writeFeature(RefObject& feature, int index, const std::string& language,
                                  std::string& output) {
  if (feature.flags["FeatureInGroup"]) {
    if (language == "PJL") {
      log(4, "serialize() - Feature " + std::to_string(index) + " is in a group");
    }
    return;
  }
  const std::string commandTemplate = feature.texts[language + "Command"];
  if (!commandTemplate.empty()) {
    output += valueText(feature, commandTemplate, language);
    return;
  }
  const std::string routine = feature.texts["Add" + language + "CallbackRoutine"];
  if (routine.empty() || callTextRoutine(routine, output)) return;
  log(2, "serialize() - Cannot load " + language + " Command callback: " + routine);
}

void ReferenceModel::serialize(int pdlType, bool /*includeInstOpt*/, std::string& output) {
  if (pdlType < 0 || pdlType > kTicket) return log(2, "serialize() - Invalid PDL type");
  if (pdlType == kTicket) {
    output = kTicketText;
    return;
  }
  const std::string language = pdlType == 1 ? "PS" : "PJL";
  std::string text;
  for (int i = 0; i < featureCount(); ++i) writeFeature(*featureByIndex(i), i, language, text);
  for (std::size_t j = 0; j < staticGroups_.size(); ++j) {
    text += groupText(*staticGroups_[j], language, true, {});
  }
  output = text;
}

}  // namespace driver_feature::operations
