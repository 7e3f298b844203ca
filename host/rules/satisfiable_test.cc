// Whether there is a way at all, judged by minisat: more rules than z3 is
// asked about, and features with choices only.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "host/rules/rulebook.h"
#include "support/rule_notation.h"

namespace driver_feature::rules {

namespace {

using Kind = Plan::Kind;

constexpr int kFeatures = 12;
constexpr int kChoices = 4;

// A choice of a feature.
struct Literal {
  int feature = 0;
  int choice = 0;
};
using Forbidden = std::vector<Literal>;  // A rule: these never together.

std::vector<Forbidden> randomRules(unsigned seed, int count) {
  std::mt19937 engine(seed);
  std::vector<Forbidden> rules;
  for (int rule = 0; rule < count; ++rule) {
    Forbidden forbidden;
    for (int left = 2; left > 0; --left) {
      forbidden.push_back(
          {static_cast<int>(engine() % kFeatures), static_cast<int>(engine() % kChoices)});
    }
    rules.push_back(forbidden);
  }
  return rules;
}

std::string featureName(int feature) {
  return "F" + std::to_string(feature);
}

std::string choiceName(int choice) {
  return "c" + std::to_string(choice);
}

Kind engineSays(const std::vector<Forbidden>& rules) {
  std::vector<std::string> texts;
  for (const Forbidden& forbidden : rules) {
    std::string text = "r:";
    for (const Literal& literal : forbidden) {
      text += " " + featureName(literal.feature) + "=" + choiceName(literal.choice);
    }
    texts.push_back(text);
  }
  Domains domains;
  for (int feature = 0; feature < kFeatures; ++feature) {
    domains.push_back(choicesOf(featureName(feature), {"c0", "c1", "c2", "c3"}));
  }
  Rulebook book(std::move(domains), rulesOf(texts));
  // Every rule counts, those of the defaults too.
  for (int feature = 0; feature < kFeatures; ++feature) book.noteSet(featureName(feature));
  return book.plan({{"F0", "c1"}}).kind;
}

// The same for minisat: F0 has its choice c1, the others have one each.
std::string clausesOf(const std::vector<Forbidden>& rules) {
  std::ostringstream clauses;
  const auto variable = [](int feature, int choice) { return feature * kChoices + choice + 1; };
  int count = 1;
  clauses << variable(0, 1) << " 0\n";
  for (int feature = 0; feature < kFeatures; ++feature) {
    for (int choice = 0; choice < kChoices; ++choice) clauses << variable(feature, choice) << ' ';
    clauses << "0\n";
    ++count;
    for (int one = 0; one < kChoices; ++one) {
      for (int other = one + 1; other < kChoices; ++other, ++count) {
        clauses << -variable(feature, one) << ' ' << -variable(feature, other) << " 0\n";
      }
    }
  }
  for (const Forbidden& forbidden : rules) {
    for (const Literal& literal : forbidden) {
      clauses << -variable(literal.feature, literal.choice) << ' ';
    }
    clauses << "0\n";
    ++count;
  }
  return "p cnf " + std::to_string(kFeatures * kChoices) + " " + std::to_string(count) + "\n" +
         clauses.str();
}

// The first word that minisat writes.
std::string minisatSays(const std::string& folder, const std::vector<Forbidden>& rules) {
  std::ofstream(folder + "/rules.cnf") << clausesOf(rules);
  const std::string command = std::string("'") + MINISAT_PROGRAM + "' '" + folder +
                              "/rules.cnf' '" + folder + "/answer' >'" + folder + "/log' 2>&1";
  // The exit status, 10 or 20, says the same as the file.
  if (std::system(command.c_str()) < 0) return "minisat does not run";
  std::string word;
  std::ifstream(folder + "/answer") >> word;
  return word;
}

TEST(Resolver, ManyRandomRules_FindsAWayWhereMinisatDoes) {
  std::string folder = (std::filesystem::temp_directory_path() / "driver-feature-XXXXXX").string();
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  int ways = 0;
  int dead = 0;
  for (unsigned seed = 1; seed <= 30; ++seed) {
    const std::vector<Forbidden> rules = randomRules(seed, 170 + 3 * static_cast<int>(seed));
    const bool hasWay = minisatSays(folder, rules) == "SAT";
    EXPECT_EQ(engineSays(rules), hasWay ? Kind::kMended : Kind::kImpossible) << "seed " << seed;
    ++(hasWay ? ways : dead);
  }
  std::filesystem::remove_all(folder);
  EXPECT_GT(ways, 5);
  EXPECT_GT(dead, 5);
}

}  // namespace

}  // namespace driver_feature::rules
