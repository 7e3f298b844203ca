#include "host/check/written_output.h"

#include <algorithm>
#include <functional>
#include <map>

#include "host/check/rules.h"
#include "host/check/template_reading.h"
#include "host/description/value_source.h"
#include "templates/command_template.h"

namespace driver_feature::check {

namespace {

// Adds what a template's conversion is replaced by.
using Insertion = std::function<void(const Piece& conversion, Pieces& pieces)>;

// The literal text from `begin` to `end`; two per cent signs are one.
void addLiteral(const Piece& piece, std::size_t begin, std::size_t end, Pieces& pieces) {
  const std::string& text = piece.attribute->value;
  while (begin < end) {
    const std::size_t mark = std::min(text.find("%%", begin), end);
    Piece literal = piece;
    literal.offset = begin;
    literal.text = text.substr(begin, mark + (mark < end ? 1 : 0) - begin);
    if (!literal.text.empty()) pieces.push_back(std::move(literal));
    begin = mark < end ? mark + 2 : end;
  }
}

// Adds the pieces of a command template that can be formatted.
void addTemplate(const host::Element& owner, const host::Attribute& command,
                 const Insertion& insert, Pieces& pieces) {
  Piece piece;
  piece.unit = piece.owner = &owner;
  piece.attribute = &command;
  const TemplateReading reading = readTemplate(command.value);
  if (reading.conversion.empty()) return addLiteral(piece, 0, command.value.size(), pieces);
  piece.isHead = owner.role == host::Role::kStaticGroup;
  addLiteral(piece, 0, reading.place, pieces);
  piece.isHead = false;
  piece.isValue = true;
  piece.offset = reading.place;
  piece.text = reading.conversion;
  insert(piece, pieces);
  piece.isValue = false;
  addLiteral(piece, reading.place + reading.conversion.size(), command.value.size(), pieces);
}

template <class Value>
Insertion insertValue(const Value& value) {
  return [value](const Piece& conversion, Pieces& pieces) {
    Piece piece = conversion;
    formatCommand(conversion.text, value, piece.text);
    pieces.push_back(std::move(piece));
  };
}

// The command of an option is put in as it is, but for a width or precision.
Insertion insertOption(const host::Element& option, const OutputLanguage& language) {
  return [&option, &language](const Piece& conversion, Pieces& pieces) {
    const host::Attribute* command = option.find(language.command);
    if (command == nullptr) return insertValue(std::string_view())(conversion, pieces);
    Piece piece = conversion;
    piece.owner = &option;
    piece.attribute = command;
    piece.offset = 0;
    piece.isValue = conversion.text != "%s";
    formatCommand(conversion.text, std::string_view(command->value), piece.text);
    pieces.push_back(std::move(piece));
  };
}

class OutputWriter {
 public:
  OutputWriter(const OutputLanguage& language, WrittenOutput& output)
      : language_(language), output_(output) {}

  // The features outside of groups, by name, then the groups. Of two features of
  // one name the later one is written, unless a group holds it.
  void writeAll(const host::Element& description) {
    std::map<std::string, const host::Element*> features;
    forEachElement(description, [&features](const host::Element& element) {
      const bool isNamed = element.role == host::Role::kFeature && element.has("Name");
      if (isNamed) features[element.name()] = &element;
    });
    for (const auto& [name, feature] : features) {
      if (!feature->isMember() && !writeFeature(*feature)) writeRoutine(*feature);
    }
    for (const auto& child : description.children) {
      if (child->role == host::Role::kStaticGroup) writeGroup(*child);
    }
  }

 private:
  // False when the feature has no command.
  bool writeFeature(const host::Element& feature) {
    if (!feature.has(language_.command)) return false;
    const host::Attribute& command = *feature.find(language_.command);
    const auto argument = feature.kind ? argumentOf(*feature.kind) : std::nullopt;
    if (!argument || !fits(command.value, *argument)) return true;
    if (feature.isKind(host::FeatureKind::kMultiSelect)) {
      writeList(feature);
    } else {
      addTemplate(feature, command, insertDefault(feature), output_.pieces);
    }
    return true;
  }

  void writeList(const host::Element& feature) {
    if (feature.children.empty()) return;
    const auto found = std::find_if(
        feature.children.begin(), feature.children.end(),
        [&feature](const auto& option) { return option->name() == feature.text("DefaultValue"); });
    const bool isKnown = found != feature.children.end() && feature.find("DefaultValue") != nullptr;
    const host::Element* option = isKnown ? found->get() : feature.children.front().get();
    WrittenList list = {&feature, option, output_.pieces.size(), 0};
    for (Piece& piece : writeOption(feature, *option, language_)) {
      output_.pieces.push_back(std::move(piece));
    }
    list.end = output_.pieces.size();
    output_.lists.push_back(list);
  }

  static Insertion insertDefault(const host::Element& feature) {
    constexpr const char* kDefault = "DefaultValue";
    if (feature.isKind(host::FeatureKind::kIntEntry)) {
      return insertValue(intOf(feature, kDefault).value_or(0));
    }
    if (feature.isKind(host::FeatureKind::kFloatEntry)) {
      const auto value = static_cast<float>(doubleOf(feature, kDefault).value_or(0));
      return insertValue(static_cast<double>(value));
    }
    return [text = feature.text(kDefault)](const Piece& conversion, Pieces& pieces) {
      insertValue(std::string_view(text))(conversion, pieces);
    };
  }

  void writeRoutine(const host::Element& element) {
    if (!element.has(language_.routine)) return;
    Piece piece;
    piece.unit = piece.owner = &element;
    output_.pieces.push_back(piece);
  }

  void writeGroup(const host::Element& group) {
    if (!group.has(language_.command)) return writeRoutine(group);
    const host::Attribute& command = *group.find(language_.command);
    if (!fits(command.value, Argument::kText)) return;
    addTemplate(
        group, command,
        [&](const Piece&, Pieces&) {
          for (const auto& member : group.children) writeMember(*member);
        },
        output_.pieces);
  }

  void writeMember(const host::Element& member) {
    if (member.role == host::Role::kStaticGroup) return writeGroup(member);
    if (member.role != host::Role::kFeature || writeFeature(member)) return;
    if (language_.memberRunsOwnRoutine) writeRoutine(member);
  }

  const OutputLanguage& language_;
  WrittenOutput& output_;
};

}  // namespace

host::Position Piece::place(std::size_t index) const {
  return placeIn(*attribute, isValue ? offset : offset + index);
}

WrittenOutput writeOutput(const host::Element& description, const OutputLanguage& language) {
  WrittenOutput output;
  OutputWriter(language, output).writeAll(description);
  return output;
}

Pieces writeOption(const host::Element& feature, const host::Element& option,
                   const OutputLanguage& language) {
  Pieces pieces;
  const host::Attribute* command = feature.find(language.command);
  addTemplate(feature, *command, insertOption(option, language), pieces);
  return pieces;
}

std::string describePiece(const Piece& piece) {
  return piece.attribute->name + " of " + describeElement(*piece.owner);
}

}  // namespace driver_feature::check
