#include "host/editor/grammar.h"

#include <gtest/gtest.h>

#include <string>

namespace driver_feature::editor {

namespace {

// "Tag: child, child; attribute! attribute(form)[word,word]{Condition}", where "!"
// is for what must be given.
std::string describeGrammar(const Grammar& grammar) {
  std::string text;
  for (const GrammarElement& element : grammar.elements()) {
    text += element.tag + ":";
    for (const GrammarChild& child : element.children) {
      text += " " + grammar.elements()[child.element].tag;
      if (!child.condition.value.empty()) text += "{" + child.condition.value + "}";
    }
    text += ";";
    for (const GrammarAttribute& attribute : element.attributes) {
      text += " " + attribute.name + (attribute.isRequired ? "!" : "");
      if (!attribute.form.empty()) text += "(" + attribute.form + ")";
      for (const GrammarWord& word : attribute.words) text += "[" + word.text + "]";
      if (!attribute.condition.value.empty()) text += "{" + attribute.condition.value + "}";
    }
    text += "\n";
  }
  return text;
}

TEST(Grammar, Get_Descriptions_IsTheSchema) {
  EXPECT_EQ(describeGrammar(Grammar::get()),
            "FeatureDescription: BaseFeatureInfo Feature FeatureStaticGroup FeatureDynamicGroup;"
            " ByteEscapes[yes][no]\n"
            "BaseFeatureInfo:; DefaultCallbackHandler!(Routine) LoadVORNCallbackHandler(Routine)\n"
            "Feature: Option{MultiSelect}; Name!(NameText) Sensitivity(Boolean)[true][false][1][0]"
            " Visibility(Boolean)[true][false][1][0] PJLCommand(Template) PSCommand(Template)"
            " TESKOAAttributeName TESKJTAttributeName TESKAttributeSyntax"
            " AddPJLCallbackRoutine(Routine) AddPSCallbackRoutine(Routine)"
            " AddVORNCallbackRoutine(Routine) InstOptAttributeName NonVORNAttributeName"
            " AddCallbackRoutine(Routine) SNMPOID SNMPOIDPrefix BiDiDataSection CLOKey"
            " FeatureType![UIOnly][MVCList][MultiSelect][IntEntry][TextEntry][FloatEntry]"
            " DefaultValue(OptionName){MultiSelect} IntMinValue(Integer){IntEntry}"
            " IntMaxValue(Integer){IntEntry} DefaultValue(Integer){IntEntry}"
            " Encrypted(Boolean)[true][false][1][0]{TextEntry} TextValidationCharSet{TextEntry}"
            " MaxTextLength(Integer){TextEntry} DefaultValue{TextEntry}"
            " FloatMinValue(Decimal){FloatEntry} FloatMaxValue(Decimal){FloatEntry}"
            " DefaultValue(Decimal){FloatEntry}\n"
            "Option:; Name!(NameText) Sensitivity(Boolean)[true][false][1][0] PJLCommand PSCommand"
            " TESKCommand TESKTicketCommand SNMPValue CLOKey\n"
            "FeatureStaticGroup: Feature FeatureStaticGroup; Name!(NameText) PJLCommand(Template)"
            " PSCommand(Template) TESKOAAttributeName TESKJTAttributeName TESKAttributeSyntax"
            " AddPJLCallbackRoutine(Routine) AddPSCallbackRoutine(Routine)"
            " AddVORNCallbackRoutine(Routine)\n"
            "FeatureDynamicGroup: FeatureStaticGroup; Name!(NameText) PJLCommand PSCommand"
            " TESKOAAttributeName TESKJTAttributeName TESKAttributeSyntax"
            " SortFunctionName(Routine)\n"
            "FeatureRules: Hardware Never;\n"
            "Hardware:; Feature!(FeatureName)\n"
            "Never: When; Id!(AdditionName) Text\n"
            "When: Is IsNot; Feature!(FeatureName) Is(AdditionName) IsNot(AdditionName)"
            " Above(PlainDecimal) Below(PlainDecimal)\n"
            "Is:; Choice!(AdditionName)\n"
            "IsNot:; Choice!(AdditionName)\n"
            "FeatureTexts: Text; Language!(AdditionName)\n"
            "Text:; For!(AdditionName)\n"
            "FeaturePresets: Preset;\n"
            "Preset:; Name!(AdditionName) Text\n"
            "FeaturePanels: Panel;\n"
            "Panel: Member; Name!(AdditionName) Text\n"
            "Member:; Feature!(FeatureName)\n"
            "FeatureMedia: Size; Feature!(FeatureName) Default\n"
            "Size:; Option!(AdditionName) Width!(PlainDecimal) Height!(PlainDecimal)"
            " LeftMargin(PlainDecimal) BottomMargin(PlainDecimal) RightMargin(PlainDecimal)"
            " TopMargin(PlainDecimal)\n");
}

TEST(Grammar, Get_Descriptions_HaveASentenceEach) {
  for (const GrammarElement& element : Grammar::get().elements()) {
    EXPECT_TRUE(element.sentence.ends_with('.')) << element.tag;
    for (const GrammarAttribute& attribute : element.attributes) {
      EXPECT_TRUE(attribute.sentence.ends_with('.')) << element.tag << " " << attribute.name;
    }
  }
}

TEST(Grammar, Find_UnknownElements_AreNotKnownNorWhatIsInThem) {
  const Markup markup(
      "<Driver><Feature/><FeatureDescription><Feature/><Option/><Other><Feature/></Other>"
      "</FeatureDescription></Driver>");
  const auto& elements = markup.elements();
  std::string known;
  for (const MarkupElement& element : elements) {
    known += Grammar::get().find(markup, element) != nullptr ? "+" : "-";
  }
  EXPECT_EQ(known, "--++---");
}

}  // namespace

}  // namespace driver_feature::editor
