#include "host/ipp/finishings.h"

#include <cups/ipp.h>

#include <algorithm>
#include <string_view>

#include "host/ipp/words.h"

namespace driver_feature::ipp {

namespace {

struct Work {
  std::string_view features;  // Ends of bare names of features.
  std::string_view tickets;   // Names in tickets.
  // Keywords of IPP, and bare names of choices.
  struct Row {
    std::string_view keyword;
    std::string_view names;
  };
  std::vector<Row> rows;
};

const std::vector<Work>& works() {
  static const std::vector<Work> kWorks = {
      {"staple stapling stapler staplelocation stapleposition stapleoption stapleoptions "
       "staplemode "
       "stapleroptions",
       "staple stapling",
       {{"staple", "on true staple single one 1staple"},
        {"staple-top-left",
         "upperleft topleft lefttop upperleftportrait front 1stapleleft upperleftsingle 1upleft "
         "leftslant 1stapleleftangled"},
        {"staple-bottom-left", "lowerleft bottomleft leftbottom"},
        {"staple-top-right", "upperright topright righttop rear 1stapleright"},
        {"staple-bottom-right", "lowerright bottomright rightbottom"},
        {"staple-dual-left",
         "dualleft doubleleft leftdouble leftdual leftdouble 2staplesleft left2 2left twoleft dual "
         "double both"},
        {"staple-dual-top", "dualtop doubletop topdouble 2staplestop top2 2top"},
        {"staple-dual-right", "dualright doubleright rightdouble 2staplesright right2 2right"},
        {"saddle-stitch", "saddle saddlestitch center booklet saddlestaple"}}},
      {"punch punching holepunch punchoption punchoptions punchposition punchlocation puncher",
       "punch punching",
       {{"punch", "on true punch"},
        {"punch-dual-left", "dualleft left2 2hole 2holes twohole twoholes 2holesleft left2holes"},
        {"punch-dual-top", "dualtop top2 2holestop top2holes"},
        {"punch-dual-right", "dualright right2 2holesright right2holes"},
        {"punch-triple-left", "tripleleft left3 3hole 3holes threehole threeholes left3holes"},
        {"punch-triple-top", "tripletop top3 3holestop top3holes"},
        {"punch-triple-right", "tripleright right3 3holesright right3holes"},
        {"punch-quad-left", "quadleft left4 4hole 4holes fourhole fourholes left4holes"},
        {"punch-quad-top", "quadtop top4 4holestop top4holes"},
        {"punch-quad-right", "quadright right4 4holesright right4holes"}}},
      {"fold folding foldtype foldmode paperfold",
       "fold folding",
       {{"fold", "on true fold"},
        {"fold-half", "half halffold single bifold vfold"},
        {"fold-letter", "letter letterfold trifold tri cfold trifoldin"},
        {"fold-z", "z zfold trifoldout"},
        {"fold-half-z", "halfz halfzfold"},
        {"fold-gate", "gate gatefold"}}},
      {"jog joboffset offsetstacking offset", "job-offset jog", {{"jog-offset", "on true jog"}}},
  };
  return kWorks;
}

// Makers put their letters before the name: "KCStaple", "HPStaplerOptions".
bool isNamedAfter(std::string_view words, std::string_view bare) {
  const std::size_t mostLetters = 3;
  for (std::size_t letters = 0; letters <= mostLetters && letters < bare.size(); ++letters) {
    if (isAmong(words, bare.substr(letters))) return true;
  }
  return false;
}

const Work* workOf(const FeatureCapability& feature) {
  if (!feature.isList() || feature.isHardware) return nullptr;
  for (const Work& work : works()) {
    if (isAmong(work.tickets, feature.ticketName)) return &work;
    if (feature.ticketName.empty() && isNamedAfter(work.features, bareName(feature.name))) {
      return &work;
    }
  }
  return nullptr;
}

int finishingNamed(const std::string& keyword) {
  return isKeyword(keyword) ? ippEnumValue("finishings", keyword.c_str()) : -1;
}

bool isNone(const ChoiceCapability& choice) {
  return choice.ticketName == "none" ||
         isAmong("none off false no nostaple nopunch nofold", bareName(choice.name));
}

int numberOf(const Work& work, const ChoiceCapability& choice) {
  const int named = finishingNamed(choice.ticketName);
  if (named > kNoFinishing) return named;
  const std::string bare = bareName(choice.name);
  for (const Work::Row& row : work.rows) {
    if (isAmong(row.names, bare)) return finishingNamed(std::string(row.keyword));
  }
  return -1;
}

bool hasNumber(const AttributeTable& table, int number) {
  return std::any_of(table.finishings.begin(), table.finishings.end(),
                     [number](const FinishingEntry& entry) { return entry.number == number; });
}

void addFeature(AttributeTable& table, const Work& work, const FeatureCapability& feature) {
  for (const ChoiceCapability& choice : feature.choices) {
    if (choice.name == kNotSet) continue;
    if (isNone(choice)) {
      table.noFinishing.emplace(feature.name, choice.name);
      continue;
    }
    const int number = numberOf(work, choice);
    if (number <= kNoFinishing || hasNumber(table, number)) continue;
    table.finishings.push_back({number, &feature, choice.name});
  }
}

}  // namespace

void addFinishings(AttributeTable& table, const Capabilities& all) {
  for (const FeatureCapability& feature : all.features) {
    if (const Work* work = workOf(feature)) addFeature(table, *work, feature);
  }
  std::sort(
      table.finishings.begin(), table.finishings.end(),
      [](const FinishingEntry& one, const FinishingEntry& two) { return one.number < two.number; });
  // Without a finishing, a choice for none says nothing.
  std::erase_if(table.noFinishing, [&table](const auto& none) {
    return std::none_of(
        table.finishings.begin(), table.finishings.end(),
        [&none](const FinishingEntry& entry) { return entry.feature->name == none.first; });
  });
}

bool carriesAll(const AttributeTable& table, const FeatureCapability& feature) {
  return std::all_of(
      feature.choices.begin(), feature.choices.end(), [&](const ChoiceCapability& choice) {
        if (choice.name == kNotSet) return true;
        const auto none = table.noFinishing.find(feature.name);
        if (none != table.noFinishing.end() && none->second == choice.name) return true;
        return std::any_of(table.finishings.begin(), table.finishings.end(),
                           [&](const FinishingEntry& entry) {
                             return entry.feature == &feature && entry.choice == choice.name;
                           });
      });
}

std::string finishingKeyword(int number) {
  return ippEnumString("finishings", number);
}

}  // namespace driver_feature::ipp
