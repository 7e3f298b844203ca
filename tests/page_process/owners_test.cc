// Who has written which piece of an output.

#include "page_process/page_fixture.h"

namespace driver_feature::testing {
namespace {

// "Owner: text" of each span, and of the pieces without one.
std::vector<std::string> piecesOf(const Json& output) {
  std::vector<std::string> pieces;
  const std::string text = output["text"];
  std::size_t at = 0;
  const auto add = [&](std::size_t end, const std::string& owner) {
    if (end > at) pieces.push_back(owner + ": " + text.substr(at, end - at));
    at = end;
  };
  for (const Json& span : output["spans"]) {
    add(span[0].get<std::size_t>(), "nobody");
    add(at + span[1].get<std::size_t>(), span[2].get<std::string>());
  }
  add(text.size(), "nobody");
  return pieces;
}

using Pieces = std::vector<std::string>;

Json outputsFor(const std::string& elements, const std::string& settings = "[]") {
  page::PageRequest request = requestFor(writtenFile("owners.xml", description(elements)));
  request.routines = {ROUTINES_LIBRARY};
  PageClient page(request);
  EXPECT_EQ(page.greeting(), Json({{"loaded", true}}));
  const Json reply = page.askText(R"({"do":"set","settings":)" + settings + "}");
  EXPECT_EQ(reply.value("ok", false), true) << reply;
  return page.askText(R"({"do":"state"})")["outputs"];
}

TEST(PageOwnersTest, FeaturesOfAllTypes_OwnTheirCommands) {
  const Json outputs = outputsFor(
      R"x(<Feature FeatureType="IntEntry" Name="D" DefaultValue="7" PSCommand="[%03d]"/>
<Feature FeatureType="FloatEntry" Name="C" DefaultValue="1.5" PSCommand="[%.2f%%]"/>
<Feature FeatureType="TextEntry" Name="B" DefaultValue="x" PSCommand="(%s)"/>
<Feature FeatureType="MultiSelect" Name="A" DefaultValue="y" PSCommand="[%s]"><Option Name="x" PSCommand="1"/><Option Name="y" PSCommand="2"/></Feature>
<Feature FeatureType="MultiSelect" Name="E" DefaultValue="x" PSCommand="%s"><Option Name="x"/></Feature>
)x",
      R"([["B","\u00f6"]])");
  EXPECT_EQ(outputs["ps"]["text"], "[2](\u00f6)[1.50%][007]");
  // Lengths are those of JavaScript: the letter with dots counts once.
  EXPECT_EQ(outputs["ps"]["spans"], Json::parse(R"([[0,3,"A"],[3,3,"B"],[6,7,"C"],[13,5,"D"]])"));
  EXPECT_EQ(outputs["pjl"], Json::parse(R"({"text":"","spans":[]})"));
}

TEST(PageOwnersTest, Groups_OwnWhatIsAroundTheirMembers) {
  const Json outputs = outputsFor(
      R"x(<FeatureStaticGroup Name="G" PSCommand="&lt;100%% %s>" PJLCommand="%5s|">
  <Feature FeatureType="IntEntry" Name="B" DefaultValue="1" PSCommand="b%d" PJLCommand="b%d"/>
  <FeatureStaticGroup Name="H" PSCommand="(%s)">
    <Feature FeatureType="IntEntry" Name="C" DefaultValue="2" PSCommand="c%d"/>
  </FeatureStaticGroup>
  <Feature FeatureType="IntEntry" Name="A" DefaultValue="3" PSCommand="a%d"/>
</FeatureStaticGroup>
<Feature FeatureType="IntEntry" Name="Z" DefaultValue="4" PSCommand="z%d;"/>
)x");
  EXPECT_EQ(piecesOf(outputs["ps"]),
            (Pieces{"Z: z4;", "G: <100% ", "B: b1", "H: (", "C: c2", "H: )", "A: a3", "G: >"}));
  // Padded values cannot be distinguished.
  EXPECT_EQ(piecesOf(outputs["pjl"]), (Pieces{"G:    b1|"}));
}

TEST(PageOwnersTest, Routines_OwnWhatTheyHaveWritten) {
  const Json outputs = outputsFor(
      R"(<Feature FeatureType="UIOnly" Name="B" AddPSCallbackRoutine="writeBytes" AddPJLCallbackRoutine="writeBytes"/>
<Feature FeatureType="IntEntry" Name="A" DefaultValue="1" PSCommand="a%d"/>
<Feature FeatureType="IntEntry" Name="C" DefaultValue="2" PSCommand="c%d"/>
<FeatureStaticGroup Name="G" PSCommand="&lt;%s>">
  <Feature FeatureType="UIOnly" Name="M" AddPSCallbackRoutine="writeBytes"/>
  <Feature FeatureType="IntEntry" Name="N" DefaultValue="3" PSCommand="n%d"/>
</FeatureStaticGroup>
<FeatureStaticGroup Name="H" PSCommand="" AddPSCallbackRoutine="writeBytes">
  <Feature FeatureType="IntEntry" Name="O" DefaultValue="4" PSCommand="o%d"/>
</FeatureStaticGroup>
)");
  // Six bytes, of which two are no UTF-8.
  EXPECT_EQ(outputs["ps"]["spans"],
            Json::parse(R"([[0,2,"A"],[2,6,"B"],[8,2,"C"],[10,1,"G"],[11,6,"M"],[17,2,"N"],
                [19,1,"G"],[20,6,"H"]])"));
  EXPECT_EQ(outputs["pjl"]["spans"], Json::parse(R"([[0,6,"B"]])"));
}

TEST(PageOwnersTest, RoutineThatReplacesTheOutput_LeavesNoOwners) {
  const Json outputs = outputsFor(
      R"(<Feature FeatureType="IntEntry" Name="A" DefaultValue="1" PSCommand="a%d"/>
<Feature FeatureType="UIOnly" Name="B" AddPSCallbackRoutine="replaceOutput"/>
<Feature FeatureType="IntEntry" Name="C" DefaultValue="2" PSCommand="c%d"/>
)");
  EXPECT_EQ(outputs["ps"], Json::parse(R"({"text":"replacedc2","spans":[]})"));
}

TEST(PageOwnersTest, CommandThatCannotBeWritten_IsAProblemOfTheOutput) {
  const Json outputs = outputsFor(
      R"(<Feature FeatureType="IntEntry" Name="A" DefaultValue="1" PSCommand="a%d"/>
<Feature FeatureType="IntEntry" Name="B" DefaultValue="1" PSCommand="b%s"/>
)");
  EXPECT_EQ(outputs["ps"]["spans"], Json::parse(R"([[0,2,"A"]])"));
  EXPECT_NE(outputs["ps"]["problem"].get<std::string>().find(
                "PSCommand of feature \"B\", \"b%s\", cannot be formatted"),
            std::string::npos)
      << outputs["ps"];
  EXPECT_FALSE(outputs["pjl"].contains("problem"));
}

TEST(PageOwnersTest, TicketNodes_BelongToTheirNames) {
  const Json outputs = outputsFor(
      R"(<Feature FeatureType="IntEntry" Name="B" DefaultValue="7" TESKJTAttributeName="copies" TESKAttributeSyntax="integer"/>
<Feature FeatureType="TextEntry" Name="A" DefaultValue="&lt;x>" TESKOAAttributeName="a&quot;b" TESKAttributeSyntax="name"/>
<FeatureStaticGroup Name="G" TESKOAAttributeName="media-col" TESKAttributeSyntax="collection">
  <Feature FeatureType="IntEntry" Name="M" DefaultValue="1" TESKOAAttributeName="m" TESKAttributeSyntax="integer"/>
  <FeatureStaticGroup Name="H" TESKOAAttributeName="size" TESKAttributeSyntax="collection">
    <Feature FeatureType="IntEntry" Name="N" DefaultValue="2" TESKOAAttributeName="n" TESKAttributeSyntax="integer"/>
  </FeatureStaticGroup>
</FeatureStaticGroup>
)");
  EXPECT_EQ(piecesOf(outputs["ticket"]),
            (Pieces{"nobody: <?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<JobTicket argument1=\"\" "
                    "argument2=\"\">\n  <JobTicketAttributes>\n",
                    "B:     <Command name=\"copies\" syntax=\"integer\" value=\"7\"/>\n",
                    "nobody:   </JobTicketAttributes>\n  <OutputAttributes>\n",
                    "A:     <Command name=\"a&quot;b\" syntax=\"name\" value=\"&lt;x&gt;\"/>\n",
                    "G:     <Group name=\"media-col\" syntax=\"collection\">\n",
                    "M:       <Command name=\"m\" syntax=\"integer\" value=\"1\"/>\n",
                    "H:       <Group name=\"size\" syntax=\"collection\">\n",
                    "N:         <Command name=\"n\" syntax=\"integer\" value=\"2\"/>\n",
                    "H:       </Group>\n", "G:     </Group>\n",
                    "nobody:   </OutputAttributes>\n</JobTicket>\n"}));
}

Json officeTicket(const std::string& settings) {
  PageClient page(officeLaser());
  page.askText(R"({"do":"set","settings":)" + settings + "}");
  return page.askText(R"({"do":"state"})")["outputs"]["ticket"];
}

TEST(PageOwnersTest, TicketRoutines_OwnTheNodesBetweenTheirNeighbours) {
  const Json ticket = officeTicket(R"([["HoldJob","Private"],["HoldPin","77"],
      ["PageSize","Custom"],["Watermark","Draft"]])");
  std::vector<std::string> owners;
  for (const std::string& piece : piecesOf(ticket)) {
    for (const char* owner : {"HoldPin: ", "CustomPageWidth: ", "Watermark: "}) {
      if (piece.starts_with(owner)) owners.push_back(piece.substr(0, piece.find('\n')));
    }
  }
  EXPECT_EQ(owners, (Pieces{"HoldPin:     <Group name=\"job-password\" syntax=\"collection\">",
                            "Watermark:     <Group name=\"x-watermark\" syntax=\"collection\">",
                            "CustomPageWidth:     <Group name=\"media-size\" "
                            "syntax=\"collection\">"}));
}

TEST(PageOwnersTest, NodeOfOneOfTwoRoutines_IsNobodys) {
  page::PageRequest request = requestFor(writtenFile(
      "two.xml",
      description(
          R"(<Feature FeatureType="MultiSelect" Name="HoldJob" DefaultValue="Private"><Option Name="Private"/></Feature>
<Feature FeatureType="TextEntry" Name="HoldPin" DefaultValue="1"/>
<Feature FeatureType="UIOnly" Name="A" AddVORNCallbackRoutine="OfficeAddHoldPin"/>
<Feature FeatureType="UIOnly" Name="B" AddVORNCallbackRoutine="OfficeAddPageExceptions"/>
)")));
  PageClient page(request);
  const Json ticket = page.askText(R"({"do":"state"})")["outputs"]["ticket"];
  EXPECT_NE(ticket["text"].get<std::string>().find("job-password"), std::string::npos);
  EXPECT_EQ(ticket["spans"], Json::array());
}

TEST(PageOwnersTest, ShippedPrinters_AreOwnedToTheLastByte) {
  for (const page::PageRequest& request : {officeLaser(), labelPrinter()}) {
    PageClient page(request);
    const Json outputs = page.askText(R"({"do":"state"})")["outputs"];
    for (const char* form : {"ps", "pjl"}) {
      const Pieces pieces = piecesOf(outputs[form]);
      EXPECT_GT(pieces.size(), 5U) << form;
      for (const std::string& piece : pieces) EXPECT_FALSE(piece.starts_with("nobody")) << piece;
    }
  }
}

}  // namespace
}  // namespace driver_feature::testing
