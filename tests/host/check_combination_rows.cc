// Rules, presets and media sizes beside the description.

#include "host/check_rows.h"

namespace {

// Lines 4 to 8 of the file; the additions begin in line 10.
const std::vector<std::string> kFeatures = {
    "<Feature FeatureType='MultiSelect' Name='Duplex' DefaultValue='None'><Option Name='None'/>"
    "<Option Name='Long'/></Feature>",
    "<Feature FeatureType='MultiSelect' Name='Size' DefaultValue='A4'><Option Name='A4'/>"
    "<Option Name='A3'/><Option Name='B5'/></Feature>",
    "<Feature FeatureType='IntEntry' Name='Copies' IntMinValue='1' IntMaxValue='99' "
    "DefaultValue='1'/>",
    "<Feature FeatureType='FloatEntry' Name='Length' FloatMinValue='0' FloatMaxValue='9' "
    "DefaultValue='5'/>",
    "<Feature FeatureType='TextEntry' Name='Note' MaxTextLength='9'/><FeatureDynamicGroup "
    "Name='Jobs' SortFunctionName='testUpdate'><FeatureStaticGroup Name='Job'><Feature "
    "FeatureType='IntEntry' Name='Number'/></FeatureStaticGroup></FeatureDynamicGroup>"};

std::string rule(const std::string& id, const std::string& conditions) {
  return "<Never Id='" + id + "'>" + conditions + "</Never>";
}

CheckRow rulesRow(const std::string& name, const std::string& rules, const std::string& expected) {
  return {name, kFeatures, expected, {"<FeatureRules>" + rules + "</FeatureRules>"}};
}

const std::string kOnOff = "<Feature FeatureType='MultiSelect' DefaultValue='False' Name=";
const std::string kOnOffEnd = "><Option Name='False'/><Option Name='True'/></Feature>";

const std::string kFine = "<When Feature='Duplex' Is='Long'/><When Feature='Size' Is='A3'/>";

}  // namespace

const std::vector<CheckRow>& combinationRows() {
  static const std::vector<CheckRow> kRows = {
      rulesRow("rules without a fault",
               "<Hardware Feature='Duplex'/>" + rule("a", kFine) +
                   rule("b",
                        "<When Feature='Copies' Above='1'/><When Feature='Length' Below='2'/>"
                        "<When Feature='Size'><IsNot Choice='A4'/><IsNot Choice='A3'/>"
                        "</When>"),
               ""),
      rulesRow("element", "<Nevr/>",
               "@:10:15: error: <FeatureRules> cannot have an element <Nevr>; did you mean "
               "\"Never\"? [DF711]\n"),
      rulesRow("attribute", "<Hardware Feature='Duplex' Id='a'/>",
               "@:10:42: error: <Hardware> has no attribute \"Id\"; use Feature, or remove it "
               "[DF712]\n"),
      rulesRow("missing attribute", "<Hardware/>",
               "@:10:15: error: <Hardware> has no Feature; give Feature [DF713]\n"),
      rulesRow("no number", rule("a", "<When Feature='Copies' Above='x'/>"),
               "@:10:52: error: Above is \"x\", which is not a number; give a decimal number such "
               "as 4.2 [DF714]\n"),
      rulesRow("form of a condition", rule("a", "<When Feature='Copies'/>"),
               "@:10:29: error: the condition on \"Copies\" says nothing about its value; give Is, "
               "IsNot, Above or Below, or elements <Is Choice=\"...\"/> [DF721]\n"),
      rulesRow("no condition", rule("a", ""),
               "@:10:15: error: rule \"a\" has no condition, and would forbid everything; give it "
               "a <When>, or remove it [DF722]\n"),
      rulesRow("unknown feature",
               "<Hardware Feature='Duplx'/>" + rule("a", "<When Feature='Copy' Is='1'/>") +
                   rule("b", "<When Feature='Jobs' Is='1'/>"),
               "@:10:25: error: the list of hardware names a feature \"Duplx\" that does not "
               "exist; did you mean \"Duplex\"? [DF723]\n"
               "@:10:62: error: rule \"a\" names a feature \"Copy\" that does not exist; give the "
               "name of a feature [DF723]\n"
               "@:10:113: error: rule \"b\" names a feature \"Jobs\" that does not exist; this "
               "is a group, name a feature [DF723]\n"),
      rulesRow("unknown option",
               rule("a",
                    "<When Feature='Duplex' Is='Lon'/><When Feature='Size'>"
                    "<IsNot Choice='A4'/><IsNot Choice='Legal'/></When>"),
               "@:10:52: error: rule \"a\" names an option \"Lon\" that feature \"Duplex\" does "
               "not have; did you mean \"Long\"? [DF724]\n"
               "@:10:110: error: rule \"a\" names an option \"Legal\" that feature \"Size\" does "
               "not have; give one of A4, A3, B5 [DF724]\n"),
      rulesRow("condition that does not fit",
               rule("a",
                    "<When Feature='Duplex' Above='1'/><When Feature='Copies' Is='1'/>"
                    "<When Feature='Note' IsNot='1'/>"),
               "@:10:35: error: the condition of rule \"a\" does not fit feature \"Duplex\", whose "
               "type is \"MultiSelect\"; use Is or IsNot [DF725]\n"
               "@:10:69: error: the condition of rule \"a\" does not fit feature \"Copies\", whose "
               "type is \"IntEntry\"; use Above or Below [DF725]\n"
               "@:10:100: error: the condition of rule \"a\" does not fit feature \"Note\", whose "
               "type is \"TextEntry\"; remove the condition [DF725]\n"),
      rulesRow(
          "hardware that is a member of a template", "<Hardware Feature='Number'/>",
          "@:10:25: error: the list of hardware names feature \"Number\", which is a member of a "
          "template; remove it; rules do not see the values of records [DF726]\n"),
      rulesRow("member of a template", rule("a", "<When Feature='Number' Above='1'/>"),
               "@:10:35: error: rule \"a\" names feature \"Number\", which is a member of a "
               "template; remove the rule; rules do not see the values of records [DF726]\n"),
      rulesRow("two of an Id", rule("a", kFine) + "\n" + rule("a", kFine),
               "@:11:8: error: rule \"a\" already exists, in line 10; give each rule an Id of its "
               "own [DF727]\n"),
      rulesRow("always",
               rule("a",
                    "<When Feature='Size'><Is Choice='A4'/><Is Choice='A3'/><Is Choice='B5'/>"
                    "</When>") +
                   "\n" +
                   rule("b",
                        "<When Feature='Copies' Above='0.5'/>"
                        "<When Feature='Length' Below='9.5'/>"),
               "@:10:22: error: rule \"a\" forbids everything: its conditions hold for all values; "
               "correct the conditions, or remove the rule [DF728]\n"
               "@:11:8: error: rule \"b\" forbids everything: its conditions hold for all values; "
               "correct the conditions, or remove the rule [DF728]\n"),
      rulesRow(
          "never",
          rule("a", "<When Feature='Size' Is='A4'/><When Feature='Size' Is='A3'/>") + "\n" +
              rule("b",
                   "<When Feature='Copies' Above='5'/><When Feature='Copies' Below='6'/>"
                   "<When Feature='Size' Is='A3'/>") +
              "\n" + rule("c", "<When Feature='Length' Above='9'/>") + "\n" +
              rule("d", "<When Feature='Length' Below='0'/>"),
          "@:10:22: warning: rule \"a\" forbids nothing: no value of feature \"Size\" fulfils "
          "its conditions; correct the conditions, or remove the rule [DF729]\n"
          "@:11:8: warning: rule \"b\" forbids nothing: no value of feature \"Copies\" fulfils "
          "its conditions; correct the conditions, or remove the rule [DF729]\n"
          "@:12:8: warning: rule \"c\" forbids nothing: no value of feature \"Length\" fulfils "
          "its conditions; correct the conditions, or remove the rule [DF729]\n"
          "@:13:8: warning: rule \"d\" forbids nothing: no value of feature \"Length\" fulfils "
          "its conditions; correct the conditions, or remove the rule [DF729]\n"),
      rulesRow("numbers next to a limit",
               rule("a", "<When Feature='Copies' Above='98'/><When Feature='Duplex' Is='Long'/>") +
                   rule("b",
                        "<When Feature='Length' Above='8.99'/>"
                        "<When Feature='Duplex' Is='Long'/>") +
                   rule("c",
                        "<When Feature='Copies' Above='4'/><When Feature='Copies' Below='6'/>"
                        "<When Feature='Duplex' Is='Long'/>"),
               ""),
      rulesRow("defaults",
               rule("a",
                    "<When Feature='Duplex' Is='None'/><When Feature='Size' IsNot='B5'/>"
                    "<When Feature='Length' Above='4'/>"),
               "@:10:22: warning: rule \"a\" forbids the default values of its features; change a "
               "default or the rule [DF730]\n"),
      rulesRow(
          "hardware twice", "<Hardware Feature='Duplex'/><Hardware Feature='Duplex'/>",
          "@:10:53: warning: feature \"Duplex\" is listed twice as hardware; remove one of the "
          "two [DF731]\n"),
      rulesRow("impossible options", rule("a", "<When Feature='Size' IsNot='A4'/>"),
               "@:10:22: warning: rule \"a\" never allows A3, B5 of feature \"Size\"; add a "
               "condition on another feature, or remove the options [DF732]\n"),
      rulesRow("one rule on two features that leaves an option no way",
               rule("a",
                    "<When Feature='Size' Is='A3'/><When Feature='Duplex'><Is Choice='None'/>"
                    "<Is Choice='Long'/></When>"),
               "@:10:22: warning: rule \"a\" never allows A3 of feature \"Size\"; add a condition "
               "on another feature, or remove the options [DF732]\n"),
      rulesRow("options that rules forbid together",
               "<Hardware Feature='Duplex'/>" + rule("a", kFine) +
                   rule("b",
                        "<When Feature='Size'><Is Choice='A3'/><Is Choice='B5'/></When>"
                        "<When Feature='Duplex' Is='None'/><When Feature='Copies' Above='9'/>") +
                   rule("c",
                        "<When Feature='Size'><Is Choice='A3'/><Is Choice='B5'/></When>"
                        "<When Feature='Duplex' Is='None'/><When Feature='Copies' Below='10'/>"),
               "@:10:50: warning: rules \"a\", \"b\", \"c\" together never allow A3 of feature "
               "\"Size\"; correct one of the rules, or remove the options [DF732]\n"),
      // The number between the two is free.
      rulesRow("rules that leave one number",
               rule("a", "<When Feature='Size' Is='A3'/><When Feature='Copies' Above='9'/>") +
                   rule("b", "<When Feature='Size' Is='A3'/><When Feature='Copies' Below='9'/>") +
                   rule("c", "<When Feature='Size' Is='B5'/><When Feature='Length' Above='9'/>") +
                   rule("d", "<When Feature='Size' Is='B5'/><When Feature='Length' Below='9'/>"),
               "@:10:194: warning: rule \"c\" forbids nothing: no value of feature \"Length\" "
               "fulfils its conditions; correct the conditions, or remove the rule [DF729]\n"),
      rulesRow(
          "rules that leave no value",
          rule("a", "<When Feature='Size' Is='A4'/><When Feature='Duplex' Is='Long'/>") +
              rule("b", "<When Feature='Size' Is='A4'/><When Feature='Duplex' Is='None'/>") +
              rule("c", "<When Feature='Size' IsNot='A4'/><When Feature='Copies' Above='5'/>") +
              rule("d", "<When Feature='Size' IsNot='A4'/><When Feature='Copies' Below='6'/>"),
          "@:10:22: error: rules \"a\", \"b\", \"c\", \"d\" together forbid everything: no "
          "value of feature \"Size\" is left; correct the rules, or remove one [DF728]\n"
          "@:10:108: warning: rule \"b\" forbids the default values of its features; change a "
          "default or the rule [DF730]\n"),
      {"presets of one name",
       kFeatures,
       "@:10:52: error: there is a preset \"p\" already; give each preset a name of its own "
       "[DF751]\n",
       {"<FeaturePresets><Preset Name='p'/><Preset Text='P' Name='p'/></FeaturePresets>"}},
      {"lines of a preset",
       kFeatures,
       "@:11:3: error: preset \"p\": there is no equals sign; write NAME=VALUE, or # before a "
       "comment [DF752]\n"
       "@:12:1: error: preset \"p\": 100 is out of range; give a whole number, from 1 to 99 "
       "(d.xml:6) [DF752]\n"
       "@:13:2: error: preset \"p\": there is no feature \"Copis\"; did you mean \"Copies\"? "
       "[DF752]\n",
       {"<FeaturePresets><Preset Name='p'>Size=A3", "  Duplex", "Copies=100", " Copis=1", "[Jobs]",
        "Number=4</Preset></FeaturePresets>"}},
      {"preset that breaks a rule",
       kFeatures,
       "@:11:25: error: preset \"p\" breaks rule \"a\"; set one of the rule's features otherwise "
       "[DF753]\n",
       {"<FeatureRules>" + rule("a", kFine) + "</FeatureRules>",
        "<FeaturePresets><Preset Name='p'>Duplex=Long", "Size=A3</Preset>",
        "<Preset Name='q'>Duplex=Long</Preset></FeaturePresets>"}},
      {"media sizes without a fault",
       kFeatures,
       "",
       {"<FeatureMedia Feature='Size' Default='A3'>"
        "<Size Option='A4' Width='210' Height='297' LeftMargin='0'/>"
        "<Size Option='A3' Width='297' Height='420' TopMargin='4.2' BottomMargin='4.2'/>"
        "</FeatureMedia>"}},
      {"media of a feature that does not exist",
       kFeatures,
       "@:10:15: error: media sizes name a feature \"Sizes\" that does not exist; did you mean "
       "\"Size\"? [DF761]\n",
       {"<FeatureMedia Feature='Sizes'/>"}},
      {"a default size that the feature does not have",
       kFeatures,
       "@:10:15: error: the default of the media sizes is an option \"A33\" that feature \"Size\" "
       "does not have; did you mean \"A3\"? [DF761]\n",
       {"<FeatureMedia Feature='Size' Default='A33'/>"}},
      {"media of a feature without options",
       kFeatures,
       "@:10:15: error: media sizes name feature \"Copies\", which has no options; name the "
       "feature "
       "that chooses the page size [DF761]\n",
       {"<FeatureMedia Feature='Copies'/>"}},
      {"media of two features",
       kFeatures,
       "@:11:1: error: a second feature, \"Duplex\", chooses the page size beside \"Size\"; give "
       "the sizes of one feature [DF761]\n",
       {"<FeatureMedia Feature='Size'/>", "<FeatureMedia Feature='Duplex'/>"}},
      {"sizes",
       kFeatures,
       "@:11:7: error: there is a size for an option \"A5\" that feature \"Size\" does not have; "
       "did you mean \"A4\"? [DF761]\n"
       "@:13:7: error: option \"A4\" has a size already; remove one of the two [DF763]\n"
       "@:14:7: error: the size of option \"A3\" is not above zero; give lengths in millimetres "
       "[DF762]\n"
       "@:15:7: error: the size of option \"B5\" has margins that leave nothing to print on; give "
       "lengths in millimetres [DF762]\n",
       {"<FeatureMedia Feature='Size'>", "<Size Option='A5' Width='1' Height='1'/>",
        "<Size Option='A4' Width='1' Height='1'/>", "<Size Option='A4' Width='1' Height='1'/>",
        "<Size Option='A3' Width='0' Height='1'/>",
        "<Size Option='B5' Width='9' Height='9' TopMargin='5' BottomMargin='4'/>",
        "</FeatureMedia>"}},
      {"panels",
       kFeatures,
       "@:11:9: error: panel \"a\" names a feature \"Dupex\" that does not exist; did you mean "
       "\"Duplex\"? [DF771]\n"
       "@:12:8: error: there is a panel \"a\" already; give each panel a name of its own [DF773]\n"
       "@:13:9: warning: feature \"Size\" is in a panel already; remove it from one of the two "
       "places [DF772]\n",
       {"<FeaturePanels><Panel Name='a'><Member Feature='Size'/>",
        "<Member Feature='Dupex'/></Panel>", "<Panel Name='a'>",
        "<Member Feature='Size'/></Panel></FeaturePanels>"}},
      {"margin below zero",
       kFeatures,
       "@:10:36: error: the size of option \"A3\" has a margin below zero; give lengths in "
       "millimetres [DF762]\n",
       {"<FeatureMedia Feature='Size'><Size Option='A3' Width='1' Height='1' LeftMargin='-1'/>"
        "</FeatureMedia>"}},
  };
  return kRows;
}

const std::vector<CheckRow>& translationRows() {
  static const std::vector<CheckRow> kRows = {
      {"texts without a fault",
       kFeatures,
       "",
       {"<FeatureRules>" + rule("a", kFine) + "</FeatureRules>",
        "<FeaturePresets><Preset Name='p'>Size=A3</Preset></FeaturePresets>",
        "<FeatureTexts Language='en'><Text For='Duplex'>D</Text><Text For='Duplex.None'>N</Text>",
        "<Text For='Job'>J</Text><Text For='Jobs'>J</Text><Text For='Number'>N</Text>",
        "<Text For='rule:a'>R</Text><Text For='preset:p'>P</Text>",
        "<Text For='panel:a'>A</Text></FeatureTexts>",
        "<FeaturePanels><Panel Name='a'><Member Feature='Duplex'/></Panel></FeaturePanels>"}},
      {"texts in attributes are in the first language",
       kFeatures,
       "@:12:15: warning: language \"de\" lacks 2 of 4 texts: panel:t, preset:p; add them, or "
       "leave them to the first language [DF744]\n",
       {"<FeatureRules><Never Id='a' Text='A'>" + kFine +
            "</Never></FeatureRules><FeaturePresets>"
            "<Preset Name='p' Text='P'>Size=A3</Preset></FeaturePresets>"
            "<FeaturePanels><Panel Name='t' Text='T'/></FeaturePanels>",
        "<FeatureTexts Language='en'><Text For='Size'>S</Text></FeatureTexts>",
        "<FeatureTexts Language='de'><Text For='Size'>S</Text><Text For='rule:a'>A</Text>"
        "</FeatureTexts>"}},
      {"texts for nothing",
       kFeatures,
       "@:10:35: error: there is nothing with the key \"Dupex\"; did you mean \"Duplex\"? [DF741]\n"
       "@:11:7: error: there is nothing with the key \"Duplex.Nune\"; did you mean "
       "\"Duplex.None\"? "
       "[DF741]\n"
       "@:12:7: error: there is nothing with the key \"rule:a\"; give a feature or group, "
       "FEATURE.OPTION, rule:ID, preset:NAME or panel:NAME [DF741]\n",
       {"<FeatureTexts Language='en'><Text For='Dupex'>x</Text>",
        "<Text For='Duplex.Nune'>x</Text>", "<Text For='rule:a'>x</Text></FeatureTexts>"}},
      {"texts of what features are switches of",
       {kOnOff + "'Staple.Left'" + kOnOffEnd, kOnOff + "'Staple.Right'" + kOnOffEnd},
       "@:9:15: warning: language \"de\" lacks 2 of 2 texts: Staple, Staple.Left; add them, or "
       "leave them to the first language [DF744]\n"
       "@:9:35: error: there is nothing with the key \"Stable\"; did you mean \"Staple\"? "
       "[DF741]\n",
       {"<FeatureTexts Language='en'><Text For='Staple'>Staples</Text>",
        "<Text For='Staple.Left'>Left</Text></FeatureTexts>",
        "<FeatureTexts Language='de'><Text For='Stable'>Klammern</Text></FeatureTexts>"}},
      {"texts that do not count",
       kFeatures,
       "@:11:7: warning: this language already has a text for \"Duplex\"; remove one of "
       "the two [DF742]\n"
       "@:12:7: warning: the text for \"Size\" is empty; give a text, or remove it [DF743]\n",
       {"<FeatureTexts Language='en'><Text For='Duplex'>x</Text></FeatureTexts><FeatureTexts "
        "Language='EN'>",
        "<Text For='Duplex'>y</Text>", "<Text For='Size'> </Text></FeatureTexts>"}},
      {"texts that a language lacks",
       kFeatures,
       "@:11:15: warning: language \"de\" lacks 2 of 3 texts: Duplex.None, Size; add them, or "
       "leave "
       "them to the first language [DF744]\n",
       {"<FeatureTexts Language='en'><Text For='Duplex'>x</Text><Text For='Duplex.None'>x</Text>"
        "<Text For='Size'>x</Text></FeatureTexts>",
        "<FeatureTexts Language='de'><Text For='Duplex'>x</Text></FeatureTexts>",
        "<FeatureTexts Language='de-AT'><Text For='Duplex'>y</Text></FeatureTexts>",
        "<FeatureTexts Language='fr'/>"}},
  };
  return kRows;
}
