// What is written to PostScript, as a whole.

#include "host/check_rows.h"

const std::vector<CheckRow>& postScriptRows() {
  static const std::vector<CheckRow> kRows = {
      {"brackets that are not closed, in a feature and across two",
       {"<Feature FeatureType='IntEntry' Name='A' PSCommand='&lt;&lt; /A %d setpagedevice&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='B' PSCommand='/B { %d def&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='C' PSCommand='/C [ %d&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='D' PSCommand='] def&#10;%%%d&#10;'/>"},
       "@:3:53: warning: \"<<\" in PSCommand of feature \"A\" is not closed; close it with \">>\" "
       "[DF510]\n"
       "@:4:56: warning: \"{\" in PSCommand of feature \"B\" is not closed; close it with \"}\" "
       "[DF510]\n"},
      {"strings that are not closed",
       {"<Feature FeatureType='IntEntry' Name='A' PSCommand='/A (\\)(%d) def&#10;'/>"},
       "@:3:56: warning: \"(\" in PSCommand of feature \"A\" is not closed; close it with \")\" "
       "[DF510]\n"},
      {"string in hexadecimal digits that is not closed",
       {"<Feature FeatureType='IntEntry' Name='A' PSCommand='/A &lt;%d def&#10;'/>"},
       "@:3:56: warning: \"<\" in PSCommand of feature \"A\" is not closed; close it with \">\" "
       "[DF510]\n"},
      {"brackets that close nothing, and those of another kind",
       {"<Feature FeatureType='IntEntry' Name='A' PSCommand='/A %d >> def&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='B' PSCommand='/B %d } def&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='C' PSCommand='/C %d ) def&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='D' PSCommand='/D %d > def&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='E' PSCommand='/E [ %d >> def&#10;'/>"},
       "@:3:59: warning: \">>\" in PSCommand of feature \"A\" closes nothing; open it, or remove "
       "it "
       "[DF510]\n"
       "@:4:59: warning: \"}\" in PSCommand of feature \"B\" closes nothing; open it, or remove it "
       "[DF510]\n"
       "@:5:59: warning: \")\" in PSCommand of feature \"C\" closes nothing; open it, or remove it "
       "[DF510]\n"
       "@:6:59: warning: \">\" in PSCommand of feature \"D\" closes nothing; open it, or remove it "
       "[DF510]\n"
       "@:7:61: warning: \">>\" in PSCommand of feature \"E\" closes the \"[\" of line 7, column "
       "56; "
       "close that with \"]\" [DF510]\n"},
      {"balanced in all, though no command is by itself; marks, nesting, strings and comments",
       {"<FeatureStaticGroup Name='G' PSCommand='&lt;&lt; %s>> setpagedevice&#10;'>",
        "<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x' PSCommand='/A %s '>",
        "<Option Name='x' PSCommand='[1 2'/><Option Name='y' PSCommand='[3 %]&#10;'/></Feature>",
        "<Feature FeatureType='IntEntry' Name='B' PSCommand='%d] '/></FeatureStaticGroup>",
        "<Feature FeatureType='IntEntry' Name='C' PSCommand='[ /A %d /ANN pdfmark mark (a(b)\\)) "
        "&lt;0> &lt;~&lt;&lt;(~> &lt;&lt;/A&lt;&lt;/B[]>>>> ] pop [{ } stopped "
        "cleartomark [ { cleartomark } ]&#10;'/>"},
       ""},
      {"option that differs from the others; the first is enough",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x' "
        "PSCommand='%s setpagedevice&#10;'>",
        "<Option Name='x' PSCommand='&lt;&lt; /A 1 >>'/><Option Name='y' PSCommand='&lt;&lt; /A'/>",
        "<Option Name='z' PSCommand='&lt;&lt; /A'/></Feature>",
        "<FeatureStaticGroup Name='G' PSCommand='%s ] pop&#10;'>",
        "<Feature FeatureType='MultiSelect' Name='B' DefaultValue='x' PSCommand='%s'>",
        "<Option Name='x' PSCommand='[ 1'/><Option Name='y' PSCommand='1'/></Feature>"
        "</FeatureStaticGroup>"},
       "@:4:76: warning: \"<<\" in PSCommand of option \"y\" of feature \"A\" is not closed; close "
       "it "
       "with \">>\" [DF510]\n"
       "@:8:52: warning: PSCommand of option \"y\" of feature \"B\" leaves other brackets open "
       "than "
       "that of the default; open and close the same as in the other options [DF510]\n"},
      {"template that is wrong with every option: one finding",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x' "
        "PSCommand='%%Page: 1&#10;&lt;&lt; /A %s pop&#10;'>",
        "<Option Name='x' PSCommand='1'/><Option Name='y' PSCommand='2'/>"
        "<Option Name='z' PSCommand='3'/></Feature>"},
       "@:3:73: warning: PSCommand of feature \"A\" writes the structure comment \"%Page: 1\" with "
       "one per cent sign; write %%%% [DF517]\n"
       "@:3:87: warning: \"<<\" in PSCommand of feature \"A\" is not closed; close it with \">>\" "
       "[DF510]\n"},
      {"option selected by default that differs from the others",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x' PSCommand='%s&#10;'>",
        "<Option Name='x' PSCommand='(1'/><Option Name='y' PSCommand='(1)'/></Feature>"},
       "@:4:29: warning: \"(\" in PSCommand of option \"x\" of feature \"A\" is not closed; close "
       "it "
       "with \")\" [DF510]\n"},
      {"routines and data may open and close anything",
       {"<Feature FeatureType='UIOnly' Name='A' AddPSCallbackRoutine='writeBytes'/>",
        "<Feature FeatureType='IntEntry' Name='B' PSCommand='%d >> ] } )&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='C' PSCommand='%d currentfile eexec ((((&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='D' PSCommand='%%%%BeginData: %d&#10;&lt;&lt; ('/>",
        "<Feature FeatureType='IntEntry' Name='E' PSCommand='] ) %d def&#10;'/>"},
       ""},
      {"data end with their command",
       {"<Feature FeatureType='IntEntry' Name='A' PSCommand='%d currentfile pop ((&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='B' PSCommand='/B [ %d&#10;'/>"},
       "@:4:56: warning: \"[\" in PSCommand of feature \"B\" is not closed; close it with \"]\" "
       "[DF510]\n"},
      {"brackets in a procedure",
       {"<Feature FeatureType='IntEntry' Name='A' PSCommand='/A { &lt;&lt; %d } def&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='B' PSCommand='/B { %d ] } def&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='C' PSCommand='/C { [ %d cleartomark } def&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='D' PSCommand='/D { mark %d } def&#10;'/>"},
       "@:3:58: warning: \"<<\" in PSCommand of feature \"A\" is not closed; close it with \">>\" "
       "[DF510]\n"
       "@:4:61: warning: \"]\" in PSCommand of feature \"B\" closes nothing; open it, or remove it "
       "[DF510]\n"},
      {"comments without a line end: before another command, of an option, and at the end",
       {"<Feature FeatureType='IntEntry' Name='A' PSCommand='/A %d def %% note'/>",
        "<Feature FeatureType='IntEntry' Name='B' PSCommand='/B %d def&#10;'/>",
        "<Feature FeatureType='MultiSelect' Name='C' DefaultValue='x' PSCommand='%s'>",
        "<Option Name='x' PSCommand='/C 1 def&#10;'/><Option Name='y' PSCommand='/C 2 def % y'/>"
        "</Feature>",
        "<Feature FeatureType='IntEntry' Name='D' PSCommand='%%%d&#10;/D (%%) def %%'/>"},
       "@:3:63: warning: PSCommand of feature \"A\" ends within a comment, which swallows what is "
       "written after it; end it with &#10; [DF511]\n"
       "@:6:82: warning: PSCommand of option \"y\" of feature \"C\" ends within a comment, which "
       "swallows what is written after it; end it with &#10; [DF511]\n"
       "@:7:74: warning: PSCommand of feature \"D\" ends within a comment, which swallows what is "
       "written after it; end it with &#10; [DF511]\n"},
      {"comment that goes on to a line end of the next command",
       {"<Feature FeatureType='IntEntry' Name='A' PSCommand='%%%d'/>",
        "<Feature FeatureType='IntEntry' Name='B' PSCommand='&#10;/B %d def&#10;'/>"},
       ""},
      {"numbers and names that run together, of members, options and groups",
       {"<FeatureStaticGroup Name='G' PSCommand='/G%s def&#10;'>",
        "<Feature FeatureType='IntEntry' Name='A' DefaultValue='12' PSCommand='%d'/>",
        "<Feature FeatureType='IntEntry' Name='B' DefaultValue='3' PSCommand='%d'/>",
        "</FeatureStaticGroup>", "<Feature FeatureType='IntEntry' Name='C' PSCommand='/C %d def'/>",
        "<Feature FeatureType='MultiSelect' Name='D' DefaultValue='x' PSCommand='%s&#10;'>",
        "<Option Name='x' PSCommand='/D 1 def'/><Option Name='y' PSCommand='true pop'/></Feature>",
        "<FeatureStaticGroup Name='H' PSCommand='/H [%s] def&#10;'>",
        "<Feature FeatureType='IntEntry' Name='E' PSCommand='%d/'/>",
        "<Feature FeatureType='IntEntry' Name='F' PSCommand='(%d)'/></FeatureStaticGroup>"},
       "@:4:71: warning: PSCommand of feature \"A\" and PSCommand of feature \"B\" run together as "
       "\"/G123\"; end the first with &#10; [DF512]\n"
       "@:7:61: warning: PSCommand of feature \"C\" and PSCommand of option \"y\" of feature \"D\" "
       "run together as \"deftrue\"; end the first with &#10; [DF512]\n"},
      {"structure comments with one per cent sign; other comments are the author's own",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x' "
        "PSCommand='%%BeginFeature: *A&#10;%s&#10;%%%%EndFeature&#10;%% EndFeature&#10;'>",
        "<Option Name='x' PSCommand='%Page: 1 1&#10;%Pagers&#10;1 %EndSetup'/></Feature>"},
       "@:3:73: warning: PSCommand of feature \"A\" writes the structure comment \"%BeginFeature: "
       "*A\" with one per cent sign; write %%%% [DF517]\n"
       "@:4:29: warning: PSCommand of option \"x\" of feature \"A\" writes the structure comment "
       "\"%Page: 1 1\" with one per cent sign; write %% [DF517]\n"},
      {"values below 0 without a sign",
       {"<Feature FeatureType='IntEntry' Name='A' IntMinValue='-1' PSCommand='/A %u def&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='B' DefaultValue='-1' PSCommand='/B 16#%x "
        "def&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='C' IntMinValue='0' PSCommand='/C %u def&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='D' IntMinValue='-1' PSCommand='/D %d def&#10;'/>"},
       "@:3:73: warning: PSCommand of feature \"A\" writes negative values with \"%u\", which has "
       "no "
       "sign; use %d, or allow no negative values [DF519]\n"
       "@:4:77: warning: PSCommand of feature \"B\" writes negative values with \"%x\", which has "
       "no "
       "sign; use %d, or allow no negative values [DF519]\n"},
  };
  return kRows;
}
