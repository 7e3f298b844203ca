#include "programs/driver_feature/commands/loss_report.h"

#include <cstddef>

#include "host/base/text.h"

namespace driver_feature::cli {

namespace {

// Parts of options that are named before the rest is only counted.
constexpr std::size_t kNamed = 5;

struct KindRow {
  ppd::LossKind kind;
  const char* one;
  const char* several;
};

constexpr KindRow kLossKinds[] = {{ppd::LossKind::kOption, "part of an option", "parts of options"},
                                  {ppd::LossKind::kConstraint, "constraint", "constraints"},
                                  {ppd::LossKind::kText, "text for users", "texts for users"},
                                  {ppd::LossKind::kKeyword, "other keyword", "other keywords"}};

}  // namespace

LossCounts countsOf(const ppd::Losses& losses) {
  LossCounts counts;
  for (const KindRow& row : kLossKinds) counts[row.kind] = losses.count(row.kind);
  return counts;
}

std::string countText(const LossCounts& counts) {
  std::vector<std::string> texts;
  for (const KindRow& row : kLossKinds) {
    const auto loss = counts.find(row.kind);
    if (loss == counts.end() || loss->second == 0) continue;
    texts.push_back(host::counted(loss->second, row.one, row.several));
  }
  return host::join(texts, ", ");
}

std::vector<std::string> summaryOf(const ppd::Losses& losses, const std::string& hint) {
  std::vector<std::string> lines = losses.lines(ppd::LossKind::kOption);
  LossCounts counts = countsOf(losses);
  counts.erase(ppd::LossKind::kOption);
  std::string rest;
  if (lines.size() > kNamed) {
    const auto more = static_cast<long>(lines.size() - kNamed);
    rest = host::counted(more, "more part of an option", "more parts of options");
    lines.resize(kNamed);
  }
  const std::string others = countText(counts);
  if (!others.empty()) rest += (rest.empty() ? "" : ", ") + others;
  if (!rest.empty()) lines.push_back(rest + hint);
  return lines;
}

bool losesChoices(const ppd::Losses& losses) {
  return losses.count(ppd::LossKind::kOption) > 0 || losses.count(ppd::LossKind::kConstraint) > 0;
}

}  // namespace driver_feature::cli
