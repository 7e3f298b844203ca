#include "host/check/fixes.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "host/base/nearest_name.h"
#include "host/base/text.h"
#include "host/check/attribute_table.h"
#include "host/description/source_text.h"

namespace driver_feature::check {

namespace {

// An attribute in the text.
struct AttributeText {
  const host::Element* element = nullptr;
  const host::Attribute* attribute = nullptr;
  std::size_t name = 0;   // Where the name begins,
  std::size_t value = 0;  // the value between the quotation marks,
  std::size_t end = 0;    // and where the value ends.
};

// Finds attributes by places inside them.
class AttributeFinder {
 public:
  AttributeFinder(std::string_view utf8, const host::Element& description)
      : utf8_(utf8), source_(utf8) {
    forEachElement(description,
                   [this](const host::Element& element) { elements_.push_back(&element); });
  }

  std::optional<AttributeText> at(host::Position position) const {
    const auto next = std::upper_bound(elements_.begin(), elements_.end(), position,
                                       [](host::Position wanted, const host::Element* element) {
                                         return wanted < element->position;
                                       });
    if (next == elements_.begin()) return std::nullopt;
    const host::Element& element = **std::prev(next);
    const host::Attribute* found = nullptr;
    for (const host::Attribute& attribute : element.attributes) {
      if (attribute.position > position || attribute.position == element.position) continue;
      if (found == nullptr || found->position < attribute.position) found = &attribute;
    }
    return found != nullptr ? textOf(element, *found, position) : std::nullopt;
  }

 private:
  std::optional<AttributeText> textOf(const host::Element& element,
                                      const host::Attribute& attribute,
                                      host::Position position) const {
    const auto name = source_.offsetOf(attribute.position);
    if (!name || !utf8_.substr(*name).starts_with(attribute.name)) return std::nullopt;
    const std::size_t quote = utf8_.find_first_of("\"'", *name);
    if (quote == std::string_view::npos) return std::nullopt;
    const std::size_t end = utf8_.find(utf8_[quote], quote + 1);
    const auto wanted = source_.offsetOf(position);
    if (end == std::string_view::npos || !wanted || *wanted > end) return std::nullopt;
    return AttributeText{&element, &attribute, *name, quote + 1, end};
  }

  std::string_view utf8_;
  host::SourceText source_;
  std::vector<const host::Element*> elements_;  // In the order of the text.
};

// As the value of an attribute, whatever its quotation marks.
std::string escaped(const std::string& value) {
  std::string text;
  for (const char character : value) {
    const bool isPlain = static_cast<unsigned char>(character) >= ' ' &&
                         std::string_view("&<\"'").find(character) == std::string_view::npos;
    if (isPlain) {
      text += character;
    } else {
      text += "&#" + std::to_string(static_cast<unsigned char>(character)) + ";";
    }
  }
  return text;
}

using Fix = std::optional<TextEdit>;

Fix replaceValue(const AttributeText& text, const std::optional<std::string>& value) {
  if (!value) return std::nullopt;
  return TextEdit{text.value, text.end - text.value, escaped(*value)};
}

Fix nameFix(const AttributeText& text) {
  const std::string& name = text.attribute->name;
  const auto meant = host::surelyMeant(name, attributeNames(*text.element));
  if (!meant || text.element->find(*meant) != nullptr) return std::nullopt;
  return TextEdit{text.name, name.size(), *meant};
}

Fix defaultFix(const AttributeText& text) {
  std::vector<std::string> names;
  for (const auto& option : text.element->children) names.push_back(option->name());
  return replaceValue(text, host::surelyMeant(text.attribute->value, names));
}

Fix truthFix(const AttributeText& text) {
  const AttributeRule* rule = findRule(*text.element, text.attribute->name);
  const std::string small = host::toLower(text.attribute->value);
  if (rule == nullptr || rule->form != ValueForm::kBool) return std::nullopt;
  if (small != "true" && small != "false") return std::nullopt;
  return replaceValue(text, small);
}

// Not when other parts of the line end it themselves.
Fix lineEndFix(const AttributeText& text) {
  const std::string& command = text.attribute->value;
  const auto& children = text.element->children;
  const bool endsElsewhere = std::any_of(children.begin(), children.end(), [&](const auto& child) {
    return child->text(text.attribute->name).ends_with('\n');
  });
  if (endsElsewhere || command.ends_with('\n')) return std::nullopt;
  return TextEdit{text.end, 0, command.ends_with('\r') ? "&#10;" : "&#13;&#10;"};
}

Fix fixOf(Code code, const AttributeText& text, const std::vector<std::string>& routines) {
  switch (code) {
    case Code::kUnknownAttribute:
      return nameFix(text);
    case Code::kUnknownType:
      return replaceValue(text, host::surelyMeant(text.attribute->value, host::featureTypeWords()));
    case Code::kUnknownDefault:
      return defaultFix(text);
    case Code::kNotConvertible:
      return truthFix(text);
    case Code::kNoLineEnd:
      return lineEndFix(text);
    case Code::kNoUpdateRoutine:
    case Code::kNoLoadRoutine:
    case Code::kNoChangeRoutine:
    case Code::kNoOutputRoutine:
    case Code::kNoSortRoutine:
      return replaceValue(text, host::surelyMeant(text.attribute->value, routines));
    default:
      return std::nullopt;
  }
}

}  // namespace

void addFixes(std::string_view utf8, const host::Element& description,
              const std::vector<std::string>& routines, Findings& findings) {
  if (findings.empty()) return;
  const AttributeFinder finder(utf8, description);
  for (Finding& finding : findings) {
    if (!finding.file.empty()) continue;
    if (const auto text = finder.at(finding.position)) {
      finding.fix = fixOf(finding.code, *text, routines);
    }
  }
}

std::string applyFixes(const std::string& utf8, const Findings& findings) {
  std::vector<TextEdit> edits;
  for (const Finding& finding : findings) {
    if (finding.fix) edits.push_back(*finding.fix);
  }
  std::stable_sort(edits.begin(), edits.end(), [](const TextEdit& left, const TextEdit& right) {
    return left.offset < right.offset;
  });
  std::string fixed;
  std::size_t done = 0;
  const TextEdit* before = nullptr;
  for (const TextEdit& edit : edits) {
    const bool again = before != nullptr && (edit.offset < done || edit.offset == before->offset);
    if (again) continue;
    fixed += utf8.substr(done, edit.offset - done) + edit.text;
    done = edit.offset + edit.length;
    before = &edit;
  }
  return fixed + utf8.substr(done);
}

long countFixes(const Findings& findings) {
  return std::count_if(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.fix.has_value(); });
}

}  // namespace driver_feature::check
