#include "equivalence/run_progress.h"

#include <string>

namespace driver_feature::equivalence {

namespace {

constexpr std::size_t kBarLength = 30;
constexpr std::size_t kPlainLines = 20;

std::string clockText(double seconds) {
  const auto whole = static_cast<long>(seconds);
  const std::string rest = std::to_string(whole % 60);
  return std::to_string(whole / 60) + ":" + (rest.size() < 2 ? "0" : "") + rest;
}

}  // namespace

void RunProgress::step(bool failed, double seconds) {
  ++done_;
  if (failed) ++failed_;
  if (isTerminal_) {
    draw(seconds);
  } else if (done_ * kPlainLines / total_ != (done_ - 1) * kPlainLines / total_) {
    output_ << "corpus: " << done_ << " of " << total_ << " PPDs, " << failed_ << " with findings, "
            << clockText(seconds) << std::endl;
  }
}

void RunProgress::draw(double seconds) {
  const std::size_t filled = done_ * kBarLength / total_;
  const double left = seconds / static_cast<double>(done_) * static_cast<double>(total_ - done_);
  output_ << "\r[" << std::string(filled, '#') << std::string(kBarLength - filled, '.') << "] "
          << done_ << "/" << total_ << ", " << failed_ << " with findings, " << clockText(left)
          << " left " << std::flush;
}

void RunProgress::finish() {
  if (isTerminal_ && done_ > 0) output_ << std::endl;
}

}  // namespace driver_feature::equivalence
