#include "host/page/shown_text.h"

#include <algorithm>

#include "host/base/text.h"

namespace driver_feature::page {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool isAscii(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}

// The character at the beginning, which is not ASCII, as it is shown.
struct Shown {
  std::size_t bytes = 1;
  std::size_t units = 1;
  std::string_view text = kReplacement;
};

Shown firstOf(std::string_view text) {
  const std::string_view character = host::splitCharacters(text.substr(0, 4)).front();
  if (character.size() == 1) return {};
  return {character.size(), character.size() == 4 ? 2U : 1U, character};
}

// Writes the shown text, and notes the units at which each of the places is reached.
class Writer {
 public:
  explicit Writer(const std::vector<std::size_t>& places) : places_(places) {}

  void write(std::string_view bytes, const std::vector<host::SecretOutputs::Place>& secrets) {
    auto secret = secrets.begin();
    for (std::size_t at = 0; at < bytes.size();) {
      reach(at);
      if (secret != secrets.end() && secret->offset == at) {
        take(secret->mask, secret->mask.size());
        at += secret->size;
        ++secret;
      } else if (isAscii(bytes[at])) {
        take(bytes.substr(at, 1), 1);
        ++at;
      } else {
        const Shown character = firstOf(bytes.substr(at));
        take(character.text, character.units);
        at += character.bytes;
      }
    }
    reach(bytes.size());
  }

  std::string& text() { return text_; }
  const std::vector<std::size_t>& units() const { return reached_; }

 private:
  void reach(std::size_t at) {
    while (reached_.size() < places_.size() && places_[reached_.size()] <= at) {
      reached_.push_back(units_);
    }
  }

  void take(std::string_view text, std::size_t units) {
    text_ += text;
    units_ += units;
  }

  const std::vector<std::size_t>& places_;
  std::vector<std::size_t> reached_;
  std::string text_;
  std::size_t units_ = 0;
};

}  // namespace

std::string shown(std::string_view bytes) {
  if (std::all_of(bytes.begin(), bytes.end(), isAscii)) return std::string(bytes);
  std::string text;
  while (!bytes.empty()) {
    const Shown first = isAscii(bytes.front()) ? Shown{1, 1, bytes.substr(0, 1)} : firstOf(bytes);
    text += first.text;
    bytes.remove_prefix(first.bytes);
  }
  return text;
}

ShownOutput show(std::string_view bytes, const std::vector<OwnedPart>& parts,
                 const host::SecretOutputs& secrets) {
  std::vector<std::size_t> places;
  places.reserve(2 * parts.size());
  for (const OwnedPart& part : parts) {
    places.push_back(part.begin);
    places.push_back(part.end);
  }
  Writer writer(places);
  writer.write(bytes, secrets.placesIn(bytes));
  ShownOutput output{std::move(writer.text()), {}};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const std::size_t begin = writer.units()[2 * i];
    const std::size_t end = writer.units()[2 * i + 1];
    if (begin == end) continue;
    std::vector<ShownSpan>& spans = output.spans;
    const bool continues = !spans.empty() && spans.back().owner == parts[i].owner &&
                           spans.back().offset + spans.back().length == begin;
    if (continues) {
      spans.back().length += end - begin;
    } else {
      spans.push_back({begin, end - begin, parts[i].owner});
    }
  }
  return output;
}

}  // namespace driver_feature::page
