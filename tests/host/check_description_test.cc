// The command "check" on what concerns the description as a whole: attributes of
// its root, namespaces, and the universal exit, which needs byte escapes.

#include <chrono>

#include "host/check_fixture.h"
#include "support/address_checks.h"

namespace {

TEST_F(CheckTest, Check_AttributesOfTheRoot_HaveTheSameRules) {
  const auto checkRoot = [this](const std::string& attributes) {
    write("d.xml", "<FeatureDescription\n " + attributes + ">" + kBaseInfo +
                       "\n<Feature FeatureType='IntEntry' Name='A' "
                       "PJLCommand='&#xF71B;%%-12345X@PJL SET A=%d&#10;'/></FeatureDescription>\n");
    return check({"d.xml"}).output;
  };
  // What is wrong with the root hides nothing, and nothing hides it.
  const std::string unread =
      "d.xml:3:54: error: PJLCommand of feature \"A\" holds U+F71B, which means the byte 1B only "
      "with ByteEscapes=\"yes\"; write ByteEscapes=\"yes\" on <FeatureDescription> [DF509]\n";
  const auto faulty = [&unread](const std::string& finding) {
    return "d.xml:2:2: error: " + finding + "\n" + unread +
           "1 file checked: 2 errors, 0 warnings\n";
  };
  EXPECT_EQ(checkRoot("ByteEscape='yes'"),
            faulty("there is no attribute \"ByteEscape\" of element <FeatureDescription>; did you "
                   "mean \"ByteEscapes\"? [DF203]"));
  EXPECT_EQ(checkRoot("byteEscapes='yes'"),
            faulty("there is no attribute \"byteEscapes\" of element <FeatureDescription>; did "
                   "you mean \"ByteEscapes\"? [DF203]"));
  EXPECT_EQ(checkRoot("ByteEscapes='true'"),
            faulty("\"true\" is not a value for \"ByteEscapes\" of element "
                   "<FeatureDescription>; give yes or no [DF301]"));
  EXPECT_EQ(checkRoot("Name='A'"),
            faulty("attribute \"Name\" has no effect on element <FeatureDescription>; remove it; "
                   "it belongs to features, options, static groups, dynamic groups [DF204]"));
  EXPECT_EQ(checkRoot("o:Version='1' xmlns:o='urn:o'"),
            unread + "1 file checked: 1 error, 0 warnings\n");
  EXPECT_EQ(checkRoot("ByteEscapes='no'"), unread + "1 file checked: 1 error, 0 warnings\n");
  EXPECT_EQ(checkRoot("ByteEscapes='yes'"), "1 file checked: 0 errors, 0 warnings\n");
}

TEST_F(CheckTest, Check_UniversalExit_BelongsBeforeOtherLines) {
  const auto checkFeatures = [this](const std::string& features) {
    write("d.xml", "<FeatureDescription ByteEscapes='yes'>" + std::string(kBaseInfo) + "\n" +
                       features + "</FeatureDescription>\n");
    return check({"d.xml"});
  };
  const std::string clean = "1 file checked: 0 errors, 0 warnings\n";
  const std::string first =
      "<Feature FeatureType='IntEntry' Name='A' PJLCommand='@PJL SET A=%d&#10;'/>\n";
  const std::string last =
      "<Feature FeatureType='IntEntry' Name='C' PJLCommand='@PJL SET C=%d&#10;'/>\n";
  const std::string exit =
      "<Feature FeatureType='MultiSelect' Name='B' DefaultValue='x' PJLCommand='%s'>\n"
      "<Option Name='x' PJLCommand='&#xF71B;%-12345X@PJL&#10;'/></Feature>\n";
  EXPECT_EQ(checkFeatures(first + exit + last),
            success("d.xml:4:30: warning: PJLCommand of option \"x\" of feature \"B\" writes the "
                    "universal exit after other lines; write it first, by a name that sorts first "
                    "[DF516]\n1 file checked: 0 errors, 1 warning\n"));
  const std::string unfinished =
      "<Feature FeatureType='IntEntry' Name='A' PJLCommand='@PJL SET A=%d '/>\n";
  EXPECT_EQ(
      checkFeatures(unfinished + exit),
      success("d.xml:2:42: warning: PJLCommand of feature \"A\" does not end its line; end it "
              "with &#13;&#10; [DF504]\n"
              "d.xml:4:30: warning: PJLCommand of option \"x\" of feature \"B\" writes the "
              "universal exit after other lines; write it first, by a name that sorts first "
              "[DF516]\n1 file checked: 0 errors, 2 warnings\n"));
  EXPECT_EQ(checkFeatures(exit + last), success(clean));
  const std::string other =
      "<Feature FeatureType='IntEntry' Name='A' PJLCommand='!R! RES %d; EXIT;&#10;'/>\n";
  EXPECT_EQ(checkFeatures(other + exit + last), success(clean));
  const std::string end =
      "<Feature FeatureType='IntEntry' Name='D' PJLCommand='@PJL EOJ %d&#10;"
      "&#xF71B;%%-12345X'/>\n";
  EXPECT_EQ(checkFeatures(first + end), success(clean));
  const std::string ends =
      "<Feature FeatureType='MultiSelect' Name='D' DefaultValue='x' PJLCommand='@PJL %s'>\n"
      "<Option Name='x' PJLCommand='EOJ&#10;&#xF71B;%-12345X'/></Feature>\n";
  EXPECT_EQ(checkFeatures(first + ends), success(clean));
  // Of a printer language that has been entered, the exit is the only way out.
  const std::string language =
      "<Feature FeatureType='IntEntry' Name='A' "
      "PJLCommand='@PJL ENTER LANGUAGE=PCL&#10;&#xF71B;E%d&#10;'/>\n";
  EXPECT_EQ(checkFeatures(language + exit + last), success(clean));
  const std::string doubled =
      "<Feature FeatureType='MultiSelect' Name='B' DefaultValue='x' PJLCommand='%s'>\n"
      "<Option Name='x' PJLCommand='&#xF71B;%%-12345X@PJL&#10;'/></Feature>\n";
  EXPECT_EQ(checkFeatures(doubled),
            success("d.xml:3:30: warning: PJLCommand of option \"x\" of feature \"B\" writes the "
                    "universal exit with two per cent signs; write one; only those of command "
                    "templates are doubled [DF514]\n1 file checked: 0 errors, 1 warning\n"));
}

// The library looks at names without their prefixes only, and so does the check.
TEST_F(CheckTest, Check_Namespaces_AreAWarningAtTheOutermostElement) {
  const std::string warning =
      " is in a namespace, which the library does not look at; write it without a prefix and, "
      "where a default namespace is declared, with xmlns=\"\" [DF112]\n"
      "1 file checked: 0 errors, 1 warning\n";
  const auto checkText = [this](const std::string& text) {
    write("d.xml", text);
    return check({"d.xml"});
  };
  const std::string info = kBaseInfo;
  EXPECT_EQ(checkText("<FeatureDescription xmlns='urn:d'>" + info + "</FeatureDescription>"),
            success("d.xml:1:1: warning: element <FeatureDescription>" + warning));
  EXPECT_EQ(checkText("<Driver xmlns='urn:d'>\n<FeatureDescription>" + info +
                      "</FeatureDescription></Driver>"),
            success("d.xml:2:1: warning: element <FeatureDescription>" + warning));
  EXPECT_EQ(checkText("<d:FeatureDescription xmlns:d='urn:d'>" + info +
                      "<d:Feature FeatureType='UIOnly' Name='A'/></d:FeatureDescription>"),
            success("d.xml:1:1: warning: element <FeatureDescription>" + warning));
  EXPECT_EQ(checkText("<FeatureDescription xmlns:d='urn:d'>" + info +
                      "\n<d:Feature FeatureType='UIOnly' Name='A'/></FeatureDescription>"),
            success("d.xml:2:1: warning: feature \"A\"" + warning));
  EXPECT_EQ(checkText("<Driver xmlns='urn:d'><FeatureDescription xmlns=''>" + info +
                      "</FeatureDescription></Driver>"),
            success("1 file checked: 0 errors, 0 warnings\n"));
}

// The time grows with the description: what takes the square of it would not end
// within the limit, which is a hundred times what is needed.
TEST_F(CheckTest, Check_LongDescriptions_TakeATimeInProportion) {
#ifdef ADDRESSES_ARE_CHECKED
  constexpr int kThousand = 100;  // Fifty times slower.
#else
  constexpr int kThousand = 1000;
#endif
  constexpr std::chrono::seconds kLimit(60);
  const auto begin = std::chrono::steady_clock::now();
  std::string options;
  for (int i = 0; i < 20 * kThousand; ++i) {
    const std::string number = std::to_string(i);
    options += "<Option Name='o" + number + "' PJLCommand='" + number + "'/>";
  }
  const std::string count = std::to_string(20 * kThousand);
  const std::string last = "o" + std::to_string(20 * kThousand - 1);
  describe("options.xml", {kBaseInfo,
                           "<Feature FeatureType='MultiSelect' Name='A' DefaultValue='" + last +
                               "' PJLCommand='@PJL SET A=%s'>",
                           options + "</Feature>"});
  EXPECT_EQ(check({"options.xml"}),
            success("options.xml:3:" + std::to_string(84 + last.size()) +
                    ": warning: PJLCommand of feature \"A\" does not end its line, "
                    "nor does any of its " +
                    count +
                    " options; end it with &#13;&#10; [DF504]\n"
                    "1 file checked: 0 errors, 1 warning\n"));
  std::vector<std::string> features = {kBaseInfo};
  for (int i = 0; i < 10 * kThousand; ++i) {
    features.push_back(feature("IntEntry", "F" + std::to_string(i), "PSCommand='[ %d&#10;'"));
  }
  describe("features.xml", features);
  EXPECT_EQ(check({"features.xml", "--quiet"}),
            success("1 file checked: 0 errors, " + std::to_string(10 * kThousand) + " warnings\n"));
  // Of one command, five faults of a kind are reported.
  describe("brackets.xml",
           {kBaseInfo, feature("IntEntry", "A",
                               "PSCommand='" + std::string(300 * kThousand, '{') +
                                   std::string(300 * kThousand, ']') + "%d&#10;'")});
  EXPECT_EQ(check({"brackets.xml", "--quiet"}), success("1 file checked: 0 errors, 10 warnings\n"));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, kLimit);
}

}  // namespace
