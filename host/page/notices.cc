#include "host/page/notices.h"

#include "host/settings/settings_file.h"

namespace driver_feature::page {

namespace {

Notices* current = nullptr;

// Looking at all features at each call would take long when a preset sets many.
constexpr std::size_t kMostLooks = 50;

}  // namespace

Notices::Notices(host::Session& session, const Catalog& catalog)
    : session_(session),
      catalog_(catalog),
      ownCallback_(host::updateCallbackOf(session.description())) {
  current = this;
  session.setUpdateCallback(&Notices::onUpdate);
}

Notices::~Notices() {
  session_.setUpdateCallback(ownCallback_);
  current = nullptr;
}

void Notices::begin() {
  lines_.clear();
  linesLeftOut_ = 0;
  notifications_.clear();
  values_.clear();
  for (const CatalogFeature& feature : catalog_.features()) {
    values_.push_back(settingText(*feature.view).value_or(""));
  }
}

void Notices::take(int level, std::string_view text) {
  if (lines_.size() == kMost) {
    ++linesLeftOut_;
  } else {
    lines_.push_back({level, std::string(text)});
  }
}

bool Notices::onUpdate() {
  current->note();
  return current->ownCallback_();
}

void Notices::note() {
  if (notifications_.size() >= kMostLooks) return;
  const std::size_t before = notifications_.size();
  for (std::size_t i = 0; i < values_.size(); ++i) {
    std::string value = settingText(*catalog_.features()[i].view).value_or("");
    if (value == values_[i]) continue;
    values_[i] = std::move(value);
    if (notifications_.size() < kMost) notifications_.push_back(catalog_.features()[i].name);
  }
  if (notifications_.size() == before) notifications_.emplace_back();
}

}  // namespace driver_feature::page
