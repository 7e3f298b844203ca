#include "host/page/page.h"

#include <algorithm>
#include <filesystem>
#include <exception>
#include <utility>

#include "host/base/text.h"
#include "host/page/model_json.h"
#include "host/page/page_request.h"
#include "host/page/plan_json.h"
#include "host/page/shown_text.h"
#include "host/page/trial.h"
#include "host/settings/settings_file.h"
#include "host/settings/settings_text.h"

namespace driver_feature::page {

namespace {

// What is built into a printer is not for its visitors to take away.
std::vector<std::string> hardwareOf(const host::Session& session) {
  std::vector<std::string> names;
  for (const host::HardwareFeature& feature : session.additions(host::kRulesPart).rules.hardware) {
    names.push_back(feature.name);
  }
  return names;
}

// Visitors need not know the folders of the printer's machine.
void leaveOutFolders(Json& model) {
  const auto leaveOut = [](Json& file) {
    file = std::filesystem::path(file.get<std::string>()).filename().string();
  };
  leaveOut(model["file"]);
  for (auto& [name, feature] : model["features"].items()) leaveOut(feature["place"]["file"]);
  for (Json& section : model["sections"]) {
    if (section.contains("place")) leaveOut(section["place"]["file"]);
  }
}

// Sentences that name places in files.
void leaveOutOf(const std::string& folder, Json& sentences) {
  if (sentences.is_structured()) {
    for (Json& each : sentences) leaveOutOf(folder, each);
  }
  if (!sentences.is_string()) return;
  std::string text = sentences;
  for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at)) {
    text.erase(at, folder.size());
  }
  sentences = std::move(text);
}

void shortenPlaces(const std::string& description, Json& reply) {
  const std::string folder = std::filesystem::path(description).parent_path().string();
  if (folder.empty()) return;
  for (const char* part : {"also", "error", "log", "off", "plan", "problem", "reasons"}) {
    if (const auto found = reply.find(part); found != reply.end()) leaveOutOf(folder + "/", *found);
  }
}

}  // namespace

host::Result<std::unique_ptr<Page>> Page::open(const PageRequest& request, int socket) {
  host::SessionRequest wanted;
  wanted.description = request.description;
  wanted.library = request.library;
  wanted.routines = request.routines;
  wanted.report = request.report;
  wanted.loadSetting = host::applyLoadedSetting;
  auto session = host::Session::open(wanted);
  if (!session) return failureOf(session);
  if (request.mode != "preview") (*session)->offerNoAllowance();
  std::unique_ptr<Page> page(new Page(std::move(*session), request));
  Page& pristine = *page;
  if (page->catalog_.hasChangeRoutines()) {
    auto copy = PristineCopy::start(socket, [&pristine](const std::string& question) {
      return reach(*pristine.session_, pristine.catalog_, pristine.keeper_, pristine.notices_,
                   question);
    });
    if (copy) page->pristine_.emplace(std::move(*copy));
  }
  try {
    page->look({});
  } catch (const std::exception& exception) {
    return host::fail(host::Problem::Kind::kNotLoaded,
                      request.description + ": a routine has thrown: " + exception.what());
  }
  page->session_->log().release();
  return page;
}

Page::Page(std::unique_ptr<host::Session> session, PageRequest request)
    : request_(std::move(request)),
      session_(std::move(session)),
      catalog_(*session_),
      layout_(layoutOf(*session_, catalog_)),
      keeper_(*session_, isOfPrinter() ? "possible with " : "--resolve changes "),
      notices_(*session_, catalog_),
      changes_(
          *session_, catalog_, keeper_, layout_.hasForeignRoutines,
          [this] { writeOutputs(*session_, catalog_, notices_); },
          isOfPrinter() ? hardwareOf(*session_) : std::vector<std::string>()) {}

std::string Page::reply(const std::string& request) {
  Json reply;
  try {
    const Json json = Json::parse(request, nullptr, false);
    reply = json.is_object() ? answer(json) : Json{{"error", "the request is not a JSON object"}};
  } catch (const std::exception& exception) {
    reply = {
        {"error", shown(std::string("the request could not be carried out: ") + exception.what())}};
  }
  // The page shows the lines of a change.
  session_->log().discard();
  if (isOfPrinter()) shortenPlaces(request_.description, reply);
  return reply.dump(-1, ' ', false, Json::error_handler_t::replace);
}

struct Page::Row {
  const char* name;
  Json (Page::*run)(const Json& request);
  bool isChange = false;
};

const Page::Row* Page::rowNamed(const std::string& name) {
  static constexpr Row kRows[] = {
      {"model", &Page::model},
      {"open", &Page::openPresent, true},
      {"open-text", &Page::openText, true},
      {"plan", &Page::plan},
      {"preset", &Page::preset, true},
      {"preset-text", &Page::presetText},
      {"records", &Page::records, true},
      {"reset", &Page::reset, true},
      {"restore", &Page::openPresent, true},
      {"set", &Page::set, true},
      {"settings", &Page::settings},
      {"state", &Page::state},
  };
  const auto* const row =
      std::ranges::find_if(kRows, [&](const Row& known) { return known.name == name; });
  return row != std::end(kRows) ? row : nullptr;
}

Json Page::answer(const Json& request) {
  const std::string wanted = textIn(request, "do");
  const Row* row = rowNamed(wanted);
  if (row == nullptr) return {{"error", "there is no request " + host::inQuotes(shown(wanted))}};
  useLanguage(request);
  session_->log().hold();
  if (row->isChange) notices_.begin();
  return (this->*row->run)(request);
}

Json Page::head() const {
  return {{"revision", request_.revision}, {"serial", request_.serial}};
}

Json Page::error(const host::Problem& problem) const {
  return {{"error", shown(describe(problem))}};
}

Json Page::model(const Json& request) {
  Json reply = modelJson(*session_, catalog_, layout_, textIn(request, "language"));
  reply["revision"] = request_.revision;
  reply["loaded"] = true;
  reply["mode"] = request_.mode;
  if (isOfPrinter()) leaveOutFolders(reply);
  return reply;
}

// The reasons why choices are off are in the new language from now on.
void Page::useLanguage(const Json& request) {
  const std::string language = textIn(request, "language", language_);
  if (language == language_) return;
  language_ = language;
  keeper_.useLanguage(language);
  Json settings = lookAtSettings();
  state_["off"] = std::move(settings["off"]);
}

Json Page::state(const Json& /*request*/) {
  Json reply = head();
  reply["whole"] = true;
  reply.update(state_);
  reply.update(whole_);
  return reply;
}

Json Page::plan(const Json& request) {
  const auto settings = settingsIn(request, catalog_);
  if (!settings) return error(settings.error());
  return planJson(keeper_.planFor(*settings), keeper_);
}

Json Page::settings(const Json& /*request*/) {
  return {{"text", shown(composeSavedSettings(session_->features(), session_->model(),
                                              host::Secrets::kLeftOut))}};
}

Json Page::presetText(const Json& /*request*/) {
  return {{"text", shown(composePreset(session_->features(), session_->model()))}};
}

}  // namespace driver_feature::page
