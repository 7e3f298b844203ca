#include "bench/rules_figures/resolving.h"

#include <algorithm>

#include "bench/rules_figures/watch.h"

namespace driver_feature::figures {

namespace {

using Kind = rules::Resolution::Kind;

// Whether a conflict is left that the defaults do not have.
bool isInConflict(Subject& subject, const std::vector<int>& byDefault) {
  const std::vector<int>& held = subject.state().held();
  return std::any_of(held.begin(), held.end(), [&](int rule) {
    return std::find(byDefault.begin(), byDefault.end(), rule) == byDefault.end();
  });
}

bool staysInConflict(Subject& subject, const PpdChoice& choice,
                     const std::vector<rules::Move>& moves) {
  const std::vector<int> byDefault = subject.state().held();
  rules::Trial trial(subject.state());
  trial.take({choice.feature, choice.value});
  for (const rules::Move& move : moves) trial.take({move.feature, move.to});
  return isInConflict(subject, byDefault) || subject.engineFinds(choice);
}

struct PeerResult {
  bool isMended = false;
  bool staysInConflict = false;
  int changes = 0;
};

PeerResult resolveInPeer(Subject& subject, const PpdChoice& choice, Counts& counts) {
  PeerResult result;
  cups_option_t* options = nullptr;
  int count = 0;
  const Watch watch;
  result.isMended = cupsResolveConflicts(&subject.ppd(), choice.option.c_str(),
                                         choice.choice.c_str(), &count, &options) != 0;
  counts.peerMicroseconds.push_back(watch.microseconds());
  if (result.isMended) {
    const std::vector<int> byDefault = subject.state().held();
    const ppd_choice_t* marked = nullptr;
    for (int i = 0; i < count; ++i) {
      marked = ppdFindMarkedChoice(&subject.ppd(), options[i].name);
      const bool isSame = marked != nullptr && options[i].value == std::string(marked->choice);
      if (options[i].name != choice.option && !isSame) ++result.changes;
    }
    ppdMarkOption(&subject.ppd(), choice.option.c_str(), choice.choice.c_str());
    cupsMarkOptions(&subject.ppd(), count, options);
    subject.takeMarks();
    result.staysInConflict = isInConflict(subject, byDefault) || subject.engineFinds(choice);
    subject.markDefaults();
  }
  cupsFreeOptions(count, options);
  return result;
}

void countPeer(const PeerResult& peer, const rules::Resolution& own, Counts& counts) {
  const bool isMended = peer.isMended && !peer.staysInConflict;
  if (isMended) ++counts.peerMended;
  if (peer.isMended && peer.staysInConflict) ++counts.peerStillInConflict;
  if (own.kind == Kind::kMended && !isMended) ++counts.peerMissed;
  const bool isMissed = own.kind == Kind::kImpossible || own.kind == Kind::kNotFound;
  if (isMissed && isMended) ++counts.peerOnly;
  if (own.kind == Kind::kMended && isMended && peer.changes > static_cast<int>(own.moves.size())) {
    ++counts.peerChangesMore;
  }
}

}  // namespace

rules::Resolution resolveBoth(Subject& subject, const PpdChoice& choice, Counts& counts) {
  const rules::Question question{
      .wishes = {{choice.feature, choice.value}}, .keepsAll = true, .stepLimit = kSteps};
  const Watch watch;
  rules::Resolution own = subject.resolver().resolve(question);
  counts.microseconds.push_back(watch.microseconds());
  if (own.kind == Kind::kMended) {
    ++counts.mended;
    ++counts.byChanges[std::min<std::size_t>(own.moves.size(), counts.byChanges.size() - 1)];
    if (staysInConflict(subject, choice, own.moves)) ++counts.stillInConflict;
  }
  if (own.kind == Kind::kImpossible) ++counts.impossible;
  if (own.kind == Kind::kImpossible && !own.withHardware.empty()) ++counts.withHardware;
  if (own.kind == Kind::kFits) ++counts.conflictOfDefaults;
  if (own.kind == Kind::kNotFound) ++counts.notFound;
  countPeer(resolveInPeer(subject, choice, counts), own, counts);
  return own;
}

}  // namespace driver_feature::figures
