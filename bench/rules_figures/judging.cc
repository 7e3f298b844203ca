#include "bench/rules_figures/judging.h"

#include <algorithm>

namespace driver_feature::figures {

namespace {

using Kind = rules::Resolution::Kind;

// Questions for one run of z3.
constexpr std::size_t kQuestions = 200;

}  // namespace

void Judging::ask(Subject& subject, const std::string& file, const PpdChoice& choice,
                  const rules::Resolution& resolution) {
  about_ = file + ": " + choice.option + "=" + choice.choice + ": ";
  ++samples_;
  if (resolution.kind == Kind::kMended) {
    ++mended_;
    askLeast(subject, choice, resolution);
  }
  if (resolution.kind == Kind::kImpossible) {
    ++impossible_;
    askReasons(subject, choice, resolution);
    askHardware(subject, choice, resolution);
    if (!resolution.withHardware.empty()) ++withHardware_;
  }
  if (judge_.questions() >= kQuestions) finish();
}

void Judging::finish() {
  const std::vector<std::string> wrong = judge_.disagreements(z3_, script_);
  wrong_.insert(wrong_.end(), wrong.begin(), wrong.end());
}

void Judging::begin(Subject& subject, const PpdChoice& choice, bool fixesHardware) {
  rules::Values now;
  hardware_.clear();
  std::vector<std::string> fixed = {subject.tables().domain(choice.feature).feature};
  for (const rules::Domain& domain : subject.domains()) {
    now[domain.feature] = domain.defaultChoice;
    const auto feature = subject.tables().find(domain.feature);
    if (feature && subject.tables().isHardware(*feature)) hardware_.push_back(domain.feature);
  }
  now[fixed.front()] = subject.domains()[static_cast<std::size_t>(choice.feature)]
                           .choices[static_cast<std::size_t>(choice.value)]
                           .name;
  if (fixesHardware) fixed.insert(fixed.end(), hardware_.begin(), hardware_.end());
  judge_.begin(subject.domains(), now, fixed);
}

// Rules that hold by default and do not speak of the choice refuse nothing.
void Judging::forbidAll(Subject& subject, const PpdChoice& choice) {
  const std::vector<int>& held = subject.state().held();
  const std::string& feature = subject.tables().domain(choice.feature).feature;
  for (std::size_t place = 0; place < subject.rules().rules.size(); ++place) {
    const host::Rule& rule = subject.rules().rules[place];
    const bool isOfChoice =
        std::any_of(rule.conditions.begin(), rule.conditions.end(),
                    [&](const host::Condition& each) { return each.feature == feature; });
    const bool isByDefault =
        std::find(held.begin(), held.end(), static_cast<int>(place)) != held.end();
    if (isOfChoice || !isByDefault) judge_.forbid(rule);
  }
}

void Judging::demand(Subject& subject, const std::vector<rules::Move>& moves) {
  for (const rules::Move& move : moves) {
    const rules::Domain& domain = subject.tables().domain(move.feature);
    judge_.demand(domain.feature, domain.choices[static_cast<std::size_t>(move.to)].name);
  }
}

void Judging::askLeast(Subject& subject, const PpdChoice& choice,
                       const rules::Resolution& resolution) {
  begin(subject, choice, true);
  forbidAll(subject, choice);
  const int changes = static_cast<int>(resolution.moves.size());
  judge_.expectWithin(changes - 1, {}, false, about_ + "fewer changes");
  judge_.limit(changes);
  demand(subject, resolution.moves);
  judge_.expect(true, about_ + "the changes");
}

void Judging::askReasons(Subject& subject, const PpdChoice& choice,
                         const rules::Resolution& resolution) {
  begin(subject, choice, true);
  const std::size_t count = resolution.rules.size();
  for (std::size_t spared = 0; spared <= count; ++spared) {
    judge_.push();
    for (std::size_t place = 0; place < count; ++place) {
      const auto rule = static_cast<std::size_t>(resolution.rules[place]);
      if (place != spared) judge_.forbid(subject.rules().rules[rule]);
    }
    judge_.expect(spared < count, about_ + "the rules of the explanation");
    judge_.pop();
  }
}

void Judging::askHardware(Subject& subject, const PpdChoice& choice,
                          const rules::Resolution& resolution) {
  begin(subject, choice, false);
  forbidAll(subject, choice);
  const std::vector<rules::Move>& moves = resolution.withHardware;
  if (moves.empty()) return judge_.expect(false, about_ + "any hardware");
  const auto changes =
      static_cast<int>(std::count_if(moves.begin(), moves.end(), [&](const rules::Move& move) {
        return subject.tables().isHardware(move.feature);
      }));
  judge_.expectWithin(changes - 1, hardware_, false, about_ + "less hardware");
  judge_.limit(changes, hardware_);
  judge_.limit(static_cast<int>(moves.size()));
  demand(subject, moves);
  judge_.expect(true, about_ + "the hardware");
}

}  // namespace driver_feature::figures
