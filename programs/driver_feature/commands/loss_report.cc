#include "programs/driver_feature/commands/loss_report.h"

#include <cstddef>

#include "host/base/text.h"

namespace driver_feature {

namespace {

// Parts of options that are named before the rest is only counted.
constexpr std::size_t kNamed = 5;

struct KindRow {
  LossKind kind;
  const char* one;
  const char* several;
};

constexpr KindRow kKinds[] = {{LossKind::kOption, "part of an option", "parts of options"},
                              {LossKind::kConstraint, "constraint", "constraints"},
                              {LossKind::kText, "text for users", "texts for users"},
                              {LossKind::kKeyword, "other keyword", "other keywords"}};

}  // namespace

std::string counted(long number, const std::string& one, const std::string& several) {
  return std::to_string(number) + " " + (number == 1 ? one : several);
}

LossCounts countsOf(const Losses& losses) {
  LossCounts counts;
  for (const KindRow& row : kKinds) counts[row.kind] = losses.count(row.kind);
  return counts;
}

std::string countText(const LossCounts& counts) {
  std::vector<std::string> texts;
  for (const KindRow& row : kKinds) {
    const auto loss = counts.find(row.kind);
    if (loss == counts.end() || loss->second == 0) continue;
    texts.push_back(counted(loss->second, row.one, row.several));
  }
  return join(texts, ", ");
}

std::vector<std::string> summaryOf(const Losses& losses, const std::string& hint) {
  std::vector<std::string> lines = losses.lines(LossKind::kOption);
  LossCounts counts = countsOf(losses);
  counts.erase(LossKind::kOption);
  std::string rest;
  if (lines.size() > kNamed) {
    const auto more = static_cast<long>(lines.size() - kNamed);
    rest = counted(more, "more part of an option", "more parts of options");
    lines.resize(kNamed);
  }
  const std::string others = countText(counts);
  if (!others.empty()) rest += (rest.empty() ? "" : ", ") + others;
  if (!rest.empty()) lines.push_back(rest + hint);
  return lines;
}

bool losesChoices(const Losses& losses) {
  return losses.count(LossKind::kOption) > 0 || losses.count(LossKind::kConstraint) > 0;
}

}  // namespace driver_feature
