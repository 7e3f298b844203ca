// What the output reaches, and tickets.

#include "host/check_rows.h"

const std::vector<CheckRow>& reachRows() {
  static const std::vector<CheckRow> kRows = {
      {"output of a template and of a dynamic group",
       {"<FeatureDynamicGroup Name='D' SortFunctionName='testUpdate' PSCommand='%s'>",
        "<FeatureStaticGroup Name='T' PJLCommand='%s&#10;'>",
        "<Feature FeatureType='IntEntry' Name='A' TESKJTAttributeName='a'/>",
        "</FeatureStaticGroup></FeatureDynamicGroup>"},
       "@:3:61: warning: PSCommand of dynamic group \"D\" is never written, because dynamic groups "
       "are not; remove it, and let a feature's routine write the records [DF609]\n"
       "@:4:30: warning: PJLCommand of static group \"T\" is never written, because it belongs to "
       "a template of records; remove it, and let a feature's routine write the records [DF601]\n"
       "@:5:42: warning: TESKJTAttributeName of feature \"A\" is never written, because it belongs "
       "to a template of records; remove it, and let a feature's routine write the records "
       "[DF601]\n"},
      {"ticket routines of a template's groups, with and without a ticket name",
       {"<FeatureDynamicGroup Name='D'>",
        "<FeatureStaticGroup Name='T' AddVORNCallbackRoutine='writeNodes'>",
        "<FeatureStaticGroup Name='U' AddVORNCallbackRoutine='writeNodes'>",
        "<Feature FeatureType='IntEntry' Name='A'/></FeatureStaticGroup>",
        "<FeatureStaticGroup Name='V' TESKJTAttributeName='v' TESKAttributeSyntax='c' "
        "AddVORNCallbackRoutine='writeNodes'>",
        "<Feature FeatureType='IntEntry' Name='B' AddVORNCallbackRoutine='writeNodes'/>",
        "</FeatureStaticGroup></FeatureStaticGroup></FeatureDynamicGroup>"},
       "@:3:1: warning: dynamic group \"D\" does not name a sort routine; its records keep the "
       "order in which they are added; name a comparing routine in SortFunctionName if their order "
       "matters [DF806]\n"
       "@:7:30: warning: TESKJTAttributeName of static group \"V\" is never written, because it "
       "belongs to a template of records; remove it, and let a feature's routine write the records "
       "[DF601]\n"
       "@:7:78: warning: AddVORNCallbackRoutine of static group \"V\" is never written, because it "
       "belongs to a template of records; remove it, and let a feature's routine write the records "
       "[DF601]\n"
       "@:8:42: warning: AddVORNCallbackRoutine of feature \"B\" is never written, because it "
       "belongs to a template of records; remove it, and let a feature's routine write the records "
       "[DF601]\n"},
      {"routines of members: PJL ignores them, PostScript does not",
       {"<FeatureStaticGroup Name='G' PJLCommand='%s' PSCommand='%s'>",
        "<Feature FeatureType='UIOnly' Name='A' AddPJLCallbackRoutine='writeBytes' "
        "AddPSCallbackRoutine='writeBytes'/></FeatureStaticGroup>"},
       "@:4:40: error: AddPJLCallbackRoutine of feature \"A\" is never called, because static "
       "group \"G\" writes it; give the feature PJLCommand, or move it out of the group [DF602]\n"},
      {"command and routine of one element",
       {"<FeatureStaticGroup Name='G' PJLCommand='%s' AddPJLCallbackRoutine='writeBytes'>",
        "<Feature FeatureType='UIOnly' Name='A'/></FeatureStaticGroup>",
        "<Feature FeatureType='IntEntry' Name='B' PSCommand='%d' "
        "AddPSCallbackRoutine='writeBytes'/>",
        "<Feature FeatureType='IntEntry' Name='C' NonVORNAttributeName='c' "
        "TESKAttributeSyntax='integer' AddVORNCallbackRoutine='writeNodes'/>",
        "<Feature FeatureType='IntEntry' Name='D' InstOptAttributeName='d' "
        "TESKAttributeSyntax='integer' AddVORNCallbackRoutine='writeNodes'/>"},
       "@:3:46: warning: AddPJLCallbackRoutine of static group \"G\" is called for members without "
       "PJLCommand, and what it writes is dropped; remove it or PJLCommand [DF603]\n"
       "@:5:57: warning: AddPSCallbackRoutine of feature \"B\" is never called, because PSCommand "
       "comes first; remove one of the two [DF606]\n"
       "@:6:97: warning: AddVORNCallbackRoutine of feature \"C\" is never called, because "
       "NonVORNAttributeName comes first; remove one of the two [DF606]\n"},
      {"members whose group is not written",
       {"<FeatureStaticGroup Name='G' AddPJLCallbackRoutine='writeBytes'>",
        "<Feature FeatureType='IntEntry' Name='A' PSCommand='%d'/>",
        "<Feature FeatureType='IntEntry' Name='B' TESKOAAttributeName='b' "
        "TESKAttributeSyntax='integer'/></FeatureStaticGroup>",
        "<FeatureStaticGroup Name='H' TESKOAAttributeName='h' TESKAttributeSyntax='c'>",
        "<FeatureStaticGroup Name='I' TESKJTAttributeName='i' TESKOAAttributeName='i' "
        "TESKAttributeSyntax='c'>",
        "<Feature FeatureType='IntEntry' Name='C' TESKOAAttributeName='c' "
        "TESKAttributeSyntax='integer'/></FeatureStaticGroup></FeatureStaticGroup>",
        "<FeatureStaticGroup Name='J' AddPSCallbackRoutine='writeBytes' "
        "AddVORNCallbackRoutine='writeNodes'><Feature FeatureType='IntEntry' Name='D' "
        "PSCommand='%d' TESKJTAttributeName='d' TESKAttributeSyntax='integer'/>"
        "</FeatureStaticGroup>"},
       "@:4:42: error: PSCommand of feature \"A\" is never written, because static group \"G\" has "
       "neither PSCommand nor AddPSCallbackRoutine; give the group PSCommand=\"%s\" [DF604]\n"
       "@:5:42: error: TESKOAAttributeName of feature \"B\" is never written, because static group "
       "\"G\" has no ticket name; give the group TESKJTAttributeName [DF604]\n"
       "@:7:30: warning: TESKJTAttributeName of static group \"I\" is never used, because its "
       "group uses TESKOAAttributeName; remove it [DF608]\n"},
      {"groups whose members write nothing, to one output or in a nested group",
       {"<FeatureStaticGroup Name='G' PSCommand='&lt;&lt; %s >>' PJLCommand='%s'>",
        "<Feature FeatureType='IntEntry' Name='A' PJLCommand='@PJL SET A=%d&#10;'/>",
        "<FeatureStaticGroup Name='H' PSCommand='[ %s ]'>",
        "<Feature FeatureType='IntEntry' Name='B' TESKJTAttributeName='b' "
        "TESKAttributeSyntax='integer'/></FeatureStaticGroup></FeatureStaticGroup>",
        "<FeatureStaticGroup Name='I' PSCommand='%s'>",
        "<Feature FeatureType='UIOnly' Name='C' AddPSCallbackRoutine='writeBytes'/>"
        "</FeatureStaticGroup>"},
       "@:5:30: warning: PSCommand of static group \"H\" is written around nothing, because no "
       "member has one; give a member PSCommand, or remove it from the group [DF610]\n"
       "@:6:42: error: TESKJTAttributeName of feature \"B\" is never written, because static group "
       "\"H\" has no ticket name; give the group TESKJTAttributeName [DF604]\n"},
      {"ticket names given twice, in a section and in a group",
       {"<Feature FeatureType='IntEntry' Name='A' TESKJTAttributeName='n' "
        "TESKAttributeSyntax='integer'/>",
        "<Feature FeatureType='IntEntry' Name='B' NonVORNAttributeName='n' "
        "TESKAttributeSyntax='integer'/>",
        "<Feature FeatureType='IntEntry' Name='C' TESKOAAttributeName='n' "
        "TESKAttributeSyntax='integer'/>",
        "<FeatureStaticGroup Name='G' TESKOAAttributeName='g' TESKAttributeSyntax='c'>",
        "<Feature FeatureType='IntEntry' Name='D' TESKOAAttributeName='n' "
        "TESKAttributeSyntax='integer'/>",
        "<Feature FeatureType='IntEntry' Name='E' TESKOAAttributeName='n' "
        "TESKAttributeSyntax='integer'/>",
        "</FeatureStaticGroup>",
        "<FeatureStaticGroup Name='H' TESKOAAttributeName='g' TESKAttributeSyntax='c'>",
        "<Feature FeatureType='IntEntry' Name='F' TESKOAAttributeName='n' "
        "TESKAttributeSyntax='integer'/></FeatureStaticGroup>"},
       "@:4:42: warning: the ticket name \"n\" of feature \"B\" is that of feature \"A\" in line "
       "3, "
       "too; give each a name of its own [DF705]\n"
       "@:8:42: warning: the ticket name \"n\" of feature \"E\" is that of feature \"D\" in line "
       "7, "
       "too; give each a name of its own [DF705]\n"
       "@:10:30: warning: the ticket name \"g\" of static group \"H\" is that of static group "
       "\"G\" "
       "in line 6, too; give each a name of its own [DF705]\n"},
      {"group that writes nothing",
       {"<FeatureStaticGroup Name='G'><Feature FeatureType='UIOnly' Name='A'/>"
        "</FeatureStaticGroup>"},
       "@:3:1: warning: static group \"G\" has no command, ticket name or routine; neither it nor "
       "its members are written; give the group a command or a ticket name, or move its members "
       "out of it [DF605]\n"},
      {"members without the ticket name of their group's kind",
       {"<FeatureStaticGroup Name='G' TESKJTAttributeName='g' TESKAttributeSyntax='c'>",
        "<Feature FeatureType='IntEntry' Name='A' TESKJTAttributeName='a' "
        "TESKAttributeSyntax='integer'/>",
        "<Feature FeatureType='IntEntry' Name='B' TESKOAAttributeName='b' "
        "TESKAttributeSyntax='integer'/>",
        "<Feature FeatureType='UIOnly' Name='C' AddVORNCallbackRoutine='writeNodes'/>",
        "<Feature FeatureType='IntEntry' Name='D' TESKJTAttributeName='d' "
        "TESKAttributeSyntax='integer' AddVORNCallbackRoutine='writeNodes'/>",
        "</FeatureStaticGroup>"},
       "@:5:1: warning: feature \"B\" is left out of the ticket, because it has no "
       "TESKJTAttributeName; give it TESKJTAttributeName, as its group has [DF607]\n"
       "    log: processVORNStaticGroup() - Cannot get feature attribute for feature 1\n"
       "@:5:42: warning: TESKOAAttributeName of feature \"B\" is never used, because its group "
       "uses TESKJTAttributeName; remove it [DF608]\n"
       "@:7:96: warning: AddVORNCallbackRoutine of feature \"D\" is never called, because "
       "TESKJTAttributeName comes first; remove one of the two [DF606]\n"},
      {"several ticket names",
       {"<Feature FeatureType='IntEntry' Name='A' TESKOAAttributeName='a' TESKJTAttributeName='a' "
        "InstOptAttributeName='a' TESKAttributeSyntax='integer'/>",
        "<Feature FeatureType='IntEntry' Name='B' InstOptAttributeName='b' "
        "NonVORNAttributeName='b' TESKAttributeSyntax='integer'/>"},
       "@:3:42: warning: TESKOAAttributeName of feature \"A\" is never used, because "
       "TESKJTAttributeName comes first; remove it [DF608]\n"
       "@:3:90: warning: InstOptAttributeName of feature \"A\" is never used, because "
       "TESKJTAttributeName comes first; remove it [DF608]\n"},
      {"option without a ticket command",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='y' TESKJTAttributeName='a' "
        "TESKAttributeSyntax='keyword'>",
        "<Option Name='x' TESKCommand='x'/><Option Name='y'/></Feature>",
        "<Feature FeatureType='MultiSelect' Name='B' DefaultValue='x' TESKJTAttributeName='b' "
        "TESKAttributeSyntax='keyword'>",
        "<Option Name='x'/><Option Name='y'/><Option Name='z'/></Feature>"},
       "@:4:35: warning: option \"y\" of feature \"A\" has no TESKCommand; with it the feature is "
       "left out of the ticket; give the option a TESKCommand [DF701]\n"
       "    log: createTicketNodeAttributes() - Empty feature option command - skipping\n"
       "@:6:1: warning: option \"x\" of feature \"B\" has no TESKCommand, like 2 more of the "
       "feature's options; "
       "with it the feature is left out of the ticket; give the option a TESKCommand [DF701]\n"
       "    log: createTicketNodeAttributes() - Empty feature option command - skipping\n"},
      {"ticket name without a syntax",
       {"<Feature FeatureType='IntEntry' Name='A' TESKJTAttributeName='a'/>"},
       "@:3:42: warning: feature \"A\" has a ticket name and no syntax; give it "
       "TESKAttributeSyntax [DF702]\n"},
      {"ticket names that readers may change",
       {"<Feature FeatureType='IntEntry' Name='A' TESKJTAttributeName='a ' "
        "TESKAttributeSyntax='integer'/>",
        "<Feature FeatureType='IntEntry' Name='B' TESKJTAttributeName='a&#10;b' "
        "TESKAttributeSyntax='integer'/>",
        "<Feature FeatureType='IntEntry' Name='C' TESKJTAttributeName='a b' "
        "TESKAttributeSyntax='integer'/>"},
       "@:3:42: warning: the ticket name \"a \" of feature \"A\" begins or ends with a blank; "
       "remove it [DF703]\n"
       "@:4:42: warning: the ticket name \"a\\nb\" of feature \"B\" holds a control character; "
       "remove it [DF703]\n"},
      {"ticket name of a feature without a value",
       {"<Feature FeatureType='MVCList' Name='A' TESKJTAttributeName='a' "
        "TESKAttributeSyntax='keyword'/>"},
       "@:3:41: error: feature \"A\" is left out of the ticket, because MVCList features have no "
       "value; write it by a routine, or give the feature another type [DF704]\n"
       "    log: createTicketNodeAttributes() - Feature has an invalid feature type\n"},
  };
  return kRows;
}
