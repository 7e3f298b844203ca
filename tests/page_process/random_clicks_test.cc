// The three outputs after any clicks are those of the page's own command line.

#include <cstdlib>
#include <random>

#include "page_process/page_fixture.h"

namespace driver_feature::testing {
namespace {

// A page that somebody clicks on without thought.
class Clicker {
 public:
  Clicker(PageClient& page, unsigned seed)
      : page_(page), random_(seed), model_(page.ask({{"do", "model"}})) {
    for (const auto& [name, feature] : model_["features"].items()) {
      const bool isSet = feature["kind"] != "shown" && !feature.value("column", false) &&
                         !feature["secret"].get<bool>();
      if (isSet) names_.push_back(name);
    }
  }

  Json click() {
    if (!model_["presets"].empty() && random_() % 10 == 0) {
      const Json& preset = model_["presets"][random_() % model_["presets"].size()];
      return page_.ask({{"do", "preset"}, {"name", preset["name"]}, {"conduct", "mend"}});
    }
    const std::string& name = names_[random_() % names_.size()];
    Json request = {{"do", "set"}, {"conduct", random_() % 2 == 0 ? "refuse" : "mend"}};
    request["settings"] = Json::array({Json::array({name, valueFor(model_["features"][name])})});
    return page_.ask(request);
  }

 private:
  std::string valueFor(const Json& feature) {
    const Json& choices = feature.value("choices", Json::array());
    if (!choices.empty()) return choices[random_() % choices.size()]["name"];
    const double least = feature.value("min", 0.0);
    const double most = feature.value("max", 100.0);
    const double number = least + (most - least) * static_cast<double>(random_() % 101) / 100;
    if (feature["kind"] == "integer") return std::to_string(static_cast<int>(number));
    if (feature["kind"] == "decimal") return Json(static_cast<float>(number)).dump();
    constexpr const char* kTexts[] = {"", "a b", "it's $HOME", "x\"y`z`", "*"};
    return kTexts[random_() % std::size(kTexts)];
  }

  PageClient& page_;
  std::minstd_rand random_;
  Json model_;
  std::vector<std::string> names_;
};

// More of them with PAGE_CLICKS, by hand.
int clickCount() {
  const char* wanted = std::getenv("PAGE_CLICKS");
  return wanted != nullptr ? std::atoi(wanted) : 15;
}

void expectCommandsToMatch(const page::PageRequest& request, unsigned seed) {
  PageClient page(request);
  Clicker clicker(page, seed);
  page.ask({{"do", "state"}});
  int made = 0;
  for (int i = 0; i < clickCount(); ++i) {
    const Json reply = clicker.click();
    ASSERT_FALSE(reply.contains("error")) << reply;
    if (!reply["ok"].get<bool>()) continue;
    ++made;
    const Json changed = page.outputs();
    const Json state = page.ask({{"do", "state"}});
    const std::string command = state["command"];
    ASSERT_EQ(changed, state["outputs"]) << "click " << i << ": " << reply["outputs"];
    ASSERT_EQ(outputsOf(state), runCommand(command)) << "click " << i << ": " << command;
  }
  EXPECT_GT(made, clickCount() / 2);
}

TEST(PageRandomClicksTest, OfficeLaser_OutputsAreThoseOfTheCommand) {
  expectCommandsToMatch(officeLaser(), 1);
}

TEST(PageRandomClicksTest, LabelPrinter_OutputsAreThoseOfTheCommand) {
  expectCommandsToMatch(labelPrinter(), 2);
}

}  // namespace
}  // namespace driver_feature::testing
