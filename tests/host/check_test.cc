// The command "check" on the rows of check_rows.h, and as a command.

#include <nlohmann/json.hpp>

#include <regex>
#include <set>

#include "host/check_fixture.h"
#include "host/check_rows.h"

namespace {

std::vector<const CheckRow*> allRows() {
  std::vector<const CheckRow*> rows;
  for (const auto* table :
       {&structureRows(), &valueRows(), &commandRows(), &postScriptRows(), &pjlRows(), &reachRows(),
        &routineRows(), &combinationRows(), &translationRows()}) {
    for (const CheckRow& row : *table) rows.push_back(&row);
  }
  return rows;
}

long countOf(const std::string& text, const std::string& word) {
  long count = 0;
  for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
    ++count;
  }
  return count;
}

std::string counted(long count, const std::string& word) {
  return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

TEST_F(CheckTest, Check_EveryRow_SaysAllOfItAndNothingElse) {
  for (const CheckRow* row : allRows()) {
    SCOPED_TRACE(row->name);
    describeRow(row->elements, row->additions);
    std::string expected = std::regex_replace(row->expected, std::regex("@:"), "d.xml:");
    const long errors = countOf(expected, ": error: ");
    const long warnings = countOf(expected, ": warning: ");
    expected +=
        "1 file checked: " + counted(errors, "error") + ", " + counted(warnings, "warning") + "\n";
    EXPECT_EQ(check({"d.xml"}), (RunResult{errors > 0 ? 1 : 0, expected, ""}));
  }
}

TEST_F(CheckTest, Rows_Together_ProduceEveryCode) {
  std::set<std::string> listed;
  const std::string text = run({"check", "--explain", "all"}).output;
  const std::regex code("(^|\n)(DF[0-9]{3}) \\(");
  for (std::sregex_iterator at(text.begin(), text.end(), code), end; at != end; ++at) {
    listed.insert((*at)[2]);
  }
  // Those of files that are not descriptions, of BaseFeatureInfo in the wrong
  // place or none, of a second description and of a namespace are produced
  // below, like those of the universal exit, which needs byte escapes; those of a
  // library that disagrees in host/check/verdict_test.cc; those of comments in
  // tests/host/check_comment_test.cc; those of files beside the description and of
  // one language in tests/host/check_beside_test.cc.
  std::set<std::string> produced = {"DF001", "DF002", "DF003", "DF107", "DF108",
                                    "DF110", "DF112", "DF516", "DF715", "DF745",
                                    "DF902", "DF903", "DF911", "DF912", "DF913"};
  const std::regex mark("\\[(DF[0-9]{3})\\]\n");
  for (const CheckRow* row : allRows()) {
    for (std::sregex_iterator at(row->expected.begin(), row->expected.end(), mark), end; at != end;
         ++at) {
      produced.insert((*at)[1]);
    }
  }
  EXPECT_EQ(produced, listed);
  EXPECT_EQ(listed.size(), 119U);
}

// The lines that a finding foretells, and what the library says when the
// description is loaded and written to everything. It sorts only when a record
// is added.
TEST_F(CheckTest, Check_LogLinesOfFindings_AreTheLibrarysOwn) {
  long compared = 0;
  for (const CheckRow* row : allRows()) {
    SCOPED_TRACE(row->name);
    if (row->expected.find("@: note: ") != std::string::npos) continue;
    if (row->expected.find("    log: ") == std::string::npos) continue;
    describeRow(row->elements, row->additions);
    std::string said;
    for (const char* form : {"ps", "pjl", "ticket"}) {
      said += run({"-v", "emit", "d.xml", "--to", form, "--callbacks", ROUTINES_LIBRARY}).errors;
    }
    const std::regex foretold("    log: (.*)\n");
    for (std::sregex_iterator at(row->expected.begin(), row->expected.end(), foretold), end;
         at != end; ++at) {
      const std::string line = (*at)[1];
      if (line.starts_with("addStaticGroupToDynamicGroupWithSort")) continue;
      ++compared;
      EXPECT_NE(said.find(": " + line + "\n"), std::string::npos) << line << "\n" << said;
    }
  }
  EXPECT_GE(compared, 25);
}

// As many features as `count`, which need different ones of one option less when a
// switch is on: impossible, and hard to prove.
std::string crowd(int count) {
  std::string features = std::string("<D><FeatureDescription>") + kBaseInfo +
                         "<Feature FeatureType='MultiSelect' Name='Switch' DefaultValue='off'>"
                         "<Option Name='off'/><Option Name='on'/></Feature>\n";
  std::string rules;
  const auto never = [&rules](const std::string& id, const std::string& conditions) {
    rules += "<Never Id='" + id + "'>" + conditions + "</Never>\n";
  };
  const auto is = [](int feature, const std::string& option) {
    return "<When Feature='F" + std::to_string(feature) + "' Is='" + option + "'/>";
  };
  for (int one = 0; one < count; ++one) {
    features += "<Feature FeatureType='MultiSelect' Name='F" + std::to_string(one) +
                "' DefaultValue='free'><Option Name='free'/>";
    never("free" + std::to_string(one), "<When Feature='Switch' Is='on'/>" + is(one, "free"));
    for (int option = 1; option < count; ++option) {
      const std::string name = "o" + std::to_string(option);
      features += "<Option Name='" + name + "'/>";
      for (int other = 0; other < one; ++other) {
        never(name + "-" + std::to_string(one) + "-" + std::to_string(other),
              is(one, name) + is(other, name));
      }
    }
    features += "</Feature>\n";
  }
  return features + "</FeatureDescription><FeatureRules>" + rules + "</FeatureRules></D>\n";
}

TEST_F(CheckTest, Check_SearchThatTakesTooLong_IsNoFinding) {
  write("d.xml", crowd(3));
  const std::string found = check({"d.xml"}).output;
  EXPECT_NE(found.find("\"free0\", \"free1\", \"o1-1-0\""), std::string::npos) << found;
  EXPECT_NE(found.find(" together never allow on of feature \"Switch\";"), std::string::npos)
      << found;
  EXPECT_NE(found.find("1 file checked: 0 errors, 1 warning\n"), std::string::npos) << found;
  write("d.xml", crowd(16));
  EXPECT_EQ(check({"d.xml"}).output, "1 file checked: 0 errors, 0 warnings\n");
}

TEST_F(CheckTest, Check_CleanDescription_EndsWithZero) {
  describeRow({feature("IntEntry", "Copies", "PSCommand='%d copies&#10;'")});
  EXPECT_EQ(check({"d.xml", "--strict"}), success("1 file checked: 0 errors, 0 warnings\n"));
}

TEST_F(CheckTest, Check_WarningsOnly_FailWhenStrict) {
  describe("d.xml", {feature("IntEntry", "Copies", "PSCommand='%d copies&#10;'")});
  const std::string text =
      "d.xml:1:1: warning: the description has no BaseFeatureInfo; put <BaseFeatureInfo "
      "DefaultCallbackHandler=\"...\"/> before the features [DF107]\n"
      "1 file checked: 0 errors, 1 warning\n";
  EXPECT_EQ(check({"d.xml"}), success(text));
  EXPECT_EQ(check({"d.xml", "--strict"}), (RunResult{1, text, ""}));
  EXPECT_EQ(check({"d.xml", "--quiet"}), success("1 file checked: 0 errors, 1 warning\n"));
}

TEST_F(CheckTest, Check_BaseFeatureInfoTooLate_NamesTheFirstThatNotifies) {
  describe("d.xml", {feature("IntEntry", "A"), feature("UIOnly", "B", "Visibility='false'"),
                     feature("UIOnly", "C", "Sensitivity='true'"), kBaseInfo});
  EXPECT_EQ(check({"d.xml"}),
            success("d.xml:5:1: warning: BaseFeatureInfo comes after \"Visibility\" of feature "
                    "\"B\" in line 3; move it before the first feature [DF108]\n"
                    "1 file checked: 0 errors, 1 warning\n"));
  describe("d.xml",
           {feature("IntEntry", "A"), kBaseInfo, feature("UIOnly", "B", "Visibility='false'")});
  EXPECT_EQ(check({"d.xml"}), success("1 file checked: 0 errors, 0 warnings\n"));
}

TEST_F(CheckTest, Check_UnusableFiles_AreReportedWithTheOthers) {
  write("broken.xml", "<FeatureDescription>\n  <Feature>\n</FeatureDescription>\n");
  write("other.xml", "<?xml version='1.0'?>\n<!-- <FeatureDescription/> -->\n <Driver/>\n");
  describeRow({});
  EXPECT_EQ(check({"gone.xml", "broken.xml", "d.xml", "other.xml"}),
            (RunResult{2,
                       "gone.xml: error: the file cannot be opened: No such file or directory; "
                       "give the path of a readable feature description [DF001]\n"
                       "broken.xml:3:22: error: </FeatureDescription> ends an element while "
                       "<Feature> of line 2 is still open; write </Feature> before it, or correct "
                       "one of the names [DF002]\n"
                       "other.xml:3:2: error: there is no FeatureDescription element; name the "
                       "root <Driver> or one of its children <FeatureDescription> [DF003]\n"
                       "4 files checked: 3 errors, 0 warnings\n",
                       ""}));
}

TEST_F(CheckTest, Check_DescriptionInsideOfAnother_PlacesCountFromTheFile) {
  write("d.xml",
        "<!DOCTYPE D [<!ELEMENT D ANY> <!-- ]> -->]>\n<D a='>'><P b=']]>'/>"
        "<![CDATA[ > <X>]]>\n\n"
        "\xC3\xA4 <FeatureDescription><BaseFeatureInfo\n   DefaultCallbackHandler =\n"
        " 'DriverFeatureHostUpdate' c='\xC3\xA4' d=''/></FeatureDescription>\n"
        "<FeatureDescription/></D>\n");
  EXPECT_EQ(check({"d.xml"}).output,
            "d.xml:6:28: error: there is no attribute \"c\" of element <BaseFeatureInfo>; remove "
            "it [DF203]\n"
            "d.xml:6:34: error: there is no attribute \"d\" of element <BaseFeatureInfo>; remove "
            "it [DF203]\n"
            "d.xml:7:1: warning: this FeatureDescription is not read, because it is not the first "
            "one; join the two or remove one of them [DF110]\n"
            "1 file checked: 2 errors, 1 warning\n");
}

TEST_F(CheckTest, Check_OtherEncodings_ColumnsCountCharacters) {
  const std::string element =
      "<BaseFeatureInfo x='' DefaultCallbackHandler='DriverFeatureHostUpdate'/>";
  write("latin.xml", "<?xml version='1.0' encoding='ISO-8859-1'?>\n<FeatureDescription>\n<!--" +
                         std::string("\xE4\xF6-->") + element + "</FeatureDescription>\n");
  write("marked.xml", "\xEF\xBB\xBF<FeatureDescription>\n\n<!--\xC3\xA4\xC3\xB6-->" + element +
                          "</FeatureDescription>\n");
  std::string wide = "\xFF\xFE";
  for (const char letter :
       "<FeatureDescription>\n\n<!--ao-->" + element + "</FeatureDescription>\n") {
    wide.append({letter, '\0'});
  }
  write("wide.xml", wide);
  for (const std::string file : {"latin.xml", "marked.xml", "wide.xml"}) {
    EXPECT_EQ(check({file}).output,
              file +
                  ":3:27: error: there is no attribute \"x\" of element <BaseFeatureInfo>; "
                  "remove it [DF203]\n1 file checked: 1 error, 0 warnings\n");
  }
}

TEST_F(CheckTest, Check_Json_HoldsAllThatTheTextHolds) {
  describeRow({"<Feature Name='A'/>"});
  const RunResult result = check({"d.xml", "gone.xml", "--json"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.errors, "");
  const nlohmann::json expected = {
      {"files",
       {{{"file", "d.xml"},
         {"usable", true},
         {"load",
          {{"loaded", false},
           {"end", "exit status 1"},
           {"log",
            {{{"level", 1}, {"text", "CreateFeature() - No keyword defined for feature type"}}}}}},
         {"findings",
          {{{"line", 3},
            {"column", 1},
            {"severity", "error"},
            {"code", "DF201"},
            {"message", "feature \"A\" has no attribute \"FeatureType\""},
            {"remedy", "give one of UIOnly, MultiSelect, IntEntry, TextEntry, FloatEntry, MVCList"},
            {"log", {"CreateFeature() - No keyword defined for feature type"}}}}}},
        {{"file", "gone.xml"},
         {"usable", false},
         {"load", nullptr},
         {"findings",
          {{{"line", 0},
            {"column", 0},
            {"severity", "error"},
            {"code", "DF001"},
            {"message", "the file cannot be opened: No such file or directory"},
            {"remedy", "give the path of a readable feature description"},
            {"log", nlohmann::json::array()}}}}}}},
      {"errors", 2},
      {"warnings", 0}};
  EXPECT_EQ(nlohmann::json::parse(result.output), expected) << result.output;
}

TEST_F(CheckTest, Check_Verbose_AddsTheLogOfTheLoad) {
  describe("d.xml", {"<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/>"});
  EXPECT_EQ(check({"d.xml", "-v"}),
            success("d.xml: note: the library loads the description\n"
                    "    log: FeatureXMLTagHandler() - No Custom Load VORN Callback Handler "
                    "element\n"
                    "1 file checked: 0 errors, 0 warnings\n"));
}

TEST_F(CheckTest, Explain_CodeInAnyCase_PrintsItsExplanation) {
  const std::string text =
      "DF106 (warning)\nEvery child of a MultiSelect feature is read as an option, whatever its "
      "name. A name other than Option may be a mistake.\n";
  EXPECT_EQ(run({"check", "--explain", "DF106"}), success(text));
  EXPECT_EQ(run({"check", "--explain", "df106"}), success(text));
  EXPECT_EQ(run({"check", "--explain", "DF999"}),
            failure(2,
                    "driver-feature: there is no code \"DF999\"; --explain all lists the "
                    "codes\n"));
}

TEST_F(CheckTest, Check_WrongUsage_IsRefused) {
  EXPECT_EQ(run({"check"}),
            failure(2,
                    "driver-feature: a feature description is needed; driver-feature check --help "
                    "explains the usage\n"));
  EXPECT_EQ(run({"check", "d.xml", "--callbacks", "gone.so"}),
            failure(1,
                    "driver-feature: the library of routines cannot be loaded: ./gone.so: cannot "
                    "open shared object file: No such file or directory; check the path given "
                    "with --callbacks\n"));
}

}  // namespace
