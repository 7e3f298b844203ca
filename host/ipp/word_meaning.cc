#include "host/ipp/word_meaning.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "host/base/text.h"
#include "host/description/description_index.h"
#include "host/ipp/ipp_values.h"
#include "host/ipp/words.h"

namespace driver_feature::ipp {

namespace {

std::optional<std::string> integerValue(const FeatureCapability& feature, const std::string& word) {
  const auto number = integerIn(word);
  const IntegerRange range = rangeOf(feature);
  if (!number || *number < range.least || *number > range.most) return std::nullopt;
  return std::to_string(*number);
}

std::optional<std::string> decimalValue(const FeatureCapability& feature, const std::string& word) {
  const auto number = decimalIn(word);
  if (!number) return std::nullopt;
  const auto stored = static_cast<float>(*number);
  if (feature.floatMin && stored < *feature.floatMin) return std::nullopt;
  if (feature.floatMax && stored > *feature.floatMax) return std::nullopt;
  return host::numberText(stored);
}

bool isControl(char letter) {
  const auto byte = static_cast<unsigned char>(letter);
  return byte < 0x20 || byte == 0x7F;
}

std::optional<std::string> textValue(const FeatureCapability& feature, const std::string& word) {
  if (std::any_of(word.begin(), word.end(), isControl)) return std::nullopt;
  const std::vector<std::string_view> characters = host::splitCharacters(word);
  const int length = static_cast<int>(characters.size());
  const int most = feature.maxTextLength.value_or(0);
  if (most > 0 && length > most) return std::nullopt;
  const std::vector<std::string_view> allowed = host::splitCharacters(feature.allowedCharacters);
  const auto isAllowed = [&allowed](std::string_view character) {
    return std::find(allowed.begin(), allowed.end(), character) != allowed.end();
  };
  if (!allowed.empty() && !std::all_of(characters.begin(), characters.end(), isAllowed)) {
    return std::nullopt;
  }
  return word;
}

// Clients that do not know the attribute's values send what their users write: the
// choice's own name or key is as good.
const ChoiceCapability* choiceWritten(const FeatureCapability& feature, const std::string& word) {
  const std::string wanted = host::toLower(word);
  for (const ChoiceCapability& choice : feature.choices) {
    if (host::toLower(choice.name) == wanted || host::toLower(choice.key) == wanted) {
      return &choice;
    }
  }
  return nullptr;
}

}  // namespace

std::optional<std::string> valueFor(const FeatureCapability& feature, const std::string& word) {
  switch (feature.kind) {
    case host::FeatureKind::kIntEntry:
      return integerValue(feature, word);
    case host::FeatureKind::kFloatEntry:
      return decimalValue(feature, word);
    default:
      return textValue(feature, word);
  }
}

std::optional<std::string> valueOf(const JobAttribute& attribute, const std::string& word) {
  const FeatureCapability* feature = attribute.feature;
  if (feature != nullptr && !feature->isList()) return valueFor(*feature, word);
  if (const WordValue* value = attribute.valueNamed(word)) return value->choice;
  const ChoiceCapability* choice =
      feature != nullptr && !word.empty() ? choiceWritten(*feature, word) : nullptr;
  return choice != nullptr ? std::optional(choice->name) : std::nullopt;
}

}  // namespace driver_feature::ipp
