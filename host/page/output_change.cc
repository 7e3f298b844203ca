#include "host/page/output_change.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "host/base/utf16.h"

namespace driver_feature::page {

using Json = nlohmann::json;

namespace {

// What lies between the same beginning and the same end of two texts.
struct Middle {
  std::size_t head = 0;  // Bytes.
  std::size_t tail = 0;
};

// Characters stay whole.
Middle middleOf(std::string_view before, std::string_view now) {
  const auto isInCharacter = [](std::string_view text, std::size_t at) {
    return at < text.size() && host::continuesCharacter(text[at]);
  };
  const std::size_t most = std::min(before.size(), now.size());
  Middle middle;
  while (middle.head < most && before[middle.head] == now[middle.head]) ++middle.head;
  while (isInCharacter(before, middle.head) || isInCharacter(now, middle.head)) --middle.head;
  while (middle.tail < most - middle.head &&
         before[before.size() - 1 - middle.tail] == now[now.size() - 1 - middle.tail]) {
    ++middle.tail;
  }
  while (isInCharacter(now, now.size() - middle.tail)) --middle.tail;
  return middle;
}

bool isMoved(const Json& before, const Json& now, long distance) {
  return before[0].get<long>() + distance == now[0].get<long>() && before[1] == now[1] &&
         before[2] == now[2];
}

bool canBeCompared(const Json& before, const Json& now) {
  return before.is_object() && !before.contains("problem") && !now.contains("problem");
}

}  // namespace

Json outputChange(const Json& before, const Json& now) {
  if (!canBeCompared(before, now)) return now;
  const std::string_view text = now["text"].get_ref<const std::string&>();
  const std::string_view old = before["text"].get_ref<const std::string&>();
  const auto [head, tail] = middleOf(old, text);
  const std::string_view come = text.substr(head, text.size() - tail - head);
  const std::size_t gone = host::utf16Units(old.substr(head, old.size() - tail - head));
  const long distance = static_cast<long>(host::utf16Units(come)) - static_cast<long>(gone);

  const Json& spans = now["spans"];
  const Json& oldSpans = before["spans"];
  const std::size_t most = std::min(spans.size(), oldSpans.size());
  std::size_t first = 0;
  while (first < most && spans[first] == oldSpans[first]) ++first;
  std::size_t last = 0;
  while (last < most - first &&
         isMoved(oldSpans[oldSpans.size() - 1 - last], spans[spans.size() - 1 - last], distance)) {
    ++last;
  }
  Json between = Json::array();
  for (std::size_t i = first; i < spans.size() - last; ++i) between.push_back(spans[i]);
  return {{"at", host::utf16Units(text.substr(0, head))},
          {"gone", gone},
          {"text", std::string(come)},
          {"head", first},
          {"tail", last},
          {"spans", std::move(between)}};
}

}  // namespace driver_feature::page
