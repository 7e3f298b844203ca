#include "host/page/output_owners.h"

#include <algorithm>
#include <optional>
#include <set>

#include "host/check/template_reading.h"
#include "host/session/group_view.h"
#include "templates/command_template.h"

namespace driver_feature::page {

namespace {

using host::FeatureKind;

struct Dialect {
  std::string command;
  std::string routine;
  bool memberRunsGroupRoutine = false;  // And drops its text.
};

const Dialect& dialectOf(host::OutputForm form) {
  static const Dialect kPostScript{"PSCommand", "AddPSCallbackRoutine", false};
  static const Dialect kPjl{"PJLCommand", "AddPJLCallbackRoutine", true};
  return form == host::OutputForm::kPjl ? kPjl : kPostScript;
}

// Puts a value into a command as the library does: what does not fit adds nothing.
template <class Value>
void append(const std::string& command, const Value& value, std::string& text) {
  appendCommand(command, value, text);
}

class OwnerWalk {
 public:
  OwnerWalk(const host::Session& session, const Catalog& catalog, const Dialect& dialect,
            const std::vector<host::RoutineText>& calls)
      : session_(session), catalog_(catalog), dialect_(dialect), calls_(calls) {}

  void writeAll() {
    for (const CatalogFeature& feature : catalog_.features()) {
      if (feature.isInGroup) continue;
      writeFeature(feature, feature.view->command(dialect_.routine));
    }
    for (const host::GroupEntry& group : session_.model().index.groups()) {
      const bool isWritten = group.kind == host::GroupKind::kStatic && group.outer.empty();
      if (isWritten) writeGroup(group.name);
    }
  }

  const std::string& text() const { return text_; }
  std::vector<OwnedPart>& parts() { return parts_; }
  bool hasUsedAllCalls() const { return call_ == calls_.size(); }

 private:
  void own(std::size_t begin, std::string_view owner) {
    if (begin < text_.size()) parts_.push_back({begin, text_.size(), owner});
  }

  // What the next call has written, when it is one of that routine.
  const std::string* nextCallOf(const std::string& routine) {
    if (routine.empty() || call_ == calls_.size() || calls_[call_].routine != routine) {
      return nullptr;
    }
    return &calls_[call_++].added;
  }

  void writeCallOf(const std::string& routine, std::string_view owner) {
    const std::size_t begin = text_.size();
    if (const std::string* added = nextCallOf(routine)) text_ += *added;
    own(begin, owner);
  }

  // With the routine that writes it when it has no command.
  void writeFeature(const CatalogFeature& feature, const std::string& routine) {
    const std::string command = feature.view->command(dialect_.command);
    if (command.empty()) return writeCallOf(routine, feature.name);
    const std::size_t begin = text_.size();
    writeValue(feature, command);
    own(begin, feature.name);
  }

  void writeValue(const CatalogFeature& feature, const std::string& command) {
    const host::FeatureView& view = *feature.view;
    switch (view.kind()) {
      case FeatureKind::kMultiSelect:
        if (IntermediateCoreOption* option = view.option(view.currentInt())) {
          std::string value;
          option->getOptionProperty(dialect_.command, value);
          append(command, std::string_view(value), text_);
        }
        break;
      case FeatureKind::kIntEntry:
        return append(command, view.currentInt(), text_);
      case FeatureKind::kTextEntry:
        return append(command, std::string_view(view.currentText()), text_);
      case FeatureKind::kFloatEntry:
        return append(command, static_cast<double>(view.currentFloat()), text_);
      default:
        break;
    }
  }

  void writeGroup(const std::string& name) {
    const auto group = host::findStaticGroup(session_.features(), name);
    if (!group || group->isTemplate() || !inProgress_.insert(name).second) return;
    const std::string_view owner = nameOf(name);
    const std::string command = group->command(dialect_.command);
    if (command.empty()) {
      writeCallOf(group->command(dialect_.routine), owner);
    } else {
      writeCommand(*group, command, owner);
    }
    inProgress_.erase(name);
  }

  // The same name, which lives as long as the session.
  std::string_view nameOf(const std::string& group) const {
    const auto& groups = session_.model().index.groups();
    const auto found = std::ranges::find(groups, group, &host::GroupEntry::name);
    return found != groups.end() ? std::string_view(found->name) : std::string_view();
  }

  void writeCommand(const host::StaticGroupView& group, const std::string& command,
                    std::string_view owner) {
    const std::size_t begin = text_.size();
    const std::size_t firstPart = parts_.size();
    const check::TemplateReading reading = check::readTemplate(command);
    const bool isPlain = reading.fault.empty() && reading.conversion == "%s";
    if (isPlain) append(command.substr(0, reading.place), std::string_view(), text_);
    own(begin, owner);
    const std::size_t members = text_.size();
    for (const std::string& member : group.memberNames()) writeMember(group, member);
    if (isPlain) {
      const std::size_t tail = text_.size();
      append(command.substr(reading.place + reading.conversion.size()), std::string_view(), text_);
      return own(tail, owner);
    }
    // A width may cut or fill up what the members write: the group owns it all.
    const std::string collected = text_.substr(members);
    text_.resize(begin);
    parts_.resize(firstPart);
    append(command, std::string_view(collected), text_);
    own(begin, owner);
  }

  void writeMember(const host::StaticGroupView& group, const std::string& name) {
    const CatalogFeature* feature = catalog_.find(name);
    if (feature == nullptr) return writeGroup(name);
    if (!dialect_.memberRunsGroupRoutine) {
      return writeFeature(*feature, feature->view->command(dialect_.routine));
    }
    writeFeature(*feature, "");
    const bool runsRoutine = feature->view->command(dialect_.command).empty();
    if (runsRoutine) nextCallOf(group.command(dialect_.routine));
  }

  const host::Session& session_;
  const Catalog& catalog_;
  const Dialect& dialect_;
  const std::vector<host::RoutineText>& calls_;
  std::size_t call_ = 0;
  std::string text_;
  std::vector<OwnedPart> parts_;
  std::set<std::string> inProgress_;  // Groups around the present one.
};

}  // namespace

std::vector<OwnedPart> textOwners(const host::Session& session, const Catalog& catalog,
                                  host::OutputForm form,
                                  const std::vector<host::RoutineText>& calls,
                                  std::string_view output) {
  const host::LogSilence silence;
  OwnerWalk walk(session, catalog, dialectOf(form), calls);
  walk.writeAll();
  if (walk.text() != output || !walk.hasUsedAllCalls()) return {};
  return std::move(walk.parts());
}

}  // namespace driver_feature::page
