// What is written to PJL, line by line.

#include "host/check_rows.h"

const std::vector<CheckRow>& pjlRows() {
  static const std::vector<CheckRow> kRows = {
      {"options without the line end of their template: one finding, with a count",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x' PJLCommand='@PJL SET A=%s'>",
        "<Option Name='x' PJLCommand='X'/><Option Name='y' PJLCommand='Y'/>",
        "<Option Name='z' PJLCommand='Z'/></Feature>",
        "<Feature FeatureType='MultiSelect' Name='B' DefaultValue='x' PJLCommand='@PJL SET B=%s'>",
        "<Option Name='x' PJLCommand='X&#10;'/><Option Name='y' PJLCommand='Y'/>",
        "<Option Name='z' PJLCommand='Z'/></Feature>"},
       "@:3:85: warning: PJLCommand of feature \"A\" does not end its line, nor does any of its 3 "
       "options; end it with &#13;&#10; [DF504]\n"
       "@:7:56: warning: PJLCommand of option \"y\" of feature \"B\" does not end its line, like 1 "
       "more of the feature's options; end it with &#13;&#10; [DF504]\n"},
      {"options without the command of their feature",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x' "
        "PJLCommand='@PJL SET A=%s&#10;'>",
        "<Option Name='x' PJLCommand='X'/><Option Name='y'/></Feature>"},
       "@:4:34: warning: option \"y\" of feature \"A\" has no PJLCommand; the feature's command is "
       "written with nothing in its place; give the option a PJLCommand [DF507]\n"},
      {"byte escapes that nothing resolves",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x' "
        "PSCommand='(%s&#xF7E4;)&#10;'>",
        "<Option Name='x' PSCommand='&#xF7FF;&#xF701;'/><Option Name='y' PSCommand='&#xF700;'/>"
        "</Feature>"},
       "@:3:76: error: PSCommand of feature \"A\" holds U+F7E4, which means the byte E4 only with "
       "ByteEscapes=\"yes\"; write ByteEscapes=\"yes\" on <FeatureDescription> [DF509]\n"
       "@:4:29: error: PSCommand of option \"x\" of feature \"A\" holds U+F7FF, which means the "
       "byte FF only with ByteEscapes=\"yes\"; write ByteEscapes=\"yes\" on <FeatureDescription> "
       "[DF509]\n"},
      {"quotation marks without a partner, in the template and in an option",
       {"<Feature FeatureType='IntEntry' Name='A' PJLCommand='@PJL SET A=&quot;%d&#10;'/>",
        "<Feature FeatureType='MultiSelect' Name='B' DefaultValue='x' PJLCommand='@PJL SET "
        "B=%s&#10;'>",
        "<Option Name='x' PJLCommand='&quot;&quot;'/><Option Name='y' PJLCommand='&quot;Y'/>"
        "<Option Name='z' PJLCommand='&quot;Z'/></Feature>"},
       "@:3:65: error: PJLCommand of feature \"A\" has an unmatched quotation mark; close "
       "the string with &quot; [DF513]\n"
       "@:5:74: error: PJLCommand of option \"y\" of feature \"B\" has an unmatched quotation "
       "mark; "
       "close the string with &quot; [DF513]\n"},
      {"line of an option that its group finishes",
       {"<FeatureStaticGroup Name='G' PJLCommand='%s&quot;&#10;'>",
        "<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x' "
        "PJLCommand='@PJL SET A=&quot;%s'>",
        "<Option Name='x' PJLCommand='X'/><Option Name='y' PJLCommand='Y'/></Feature>",
        "</FeatureStaticGroup>"},
       ""},
      {"lines that are meant as PJL and do not begin with @PJL",
       {"<Feature FeatureType='IntEntry' Name='A' PJLCommand='@PLJ SET A=%d&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='B' PJLCommand='@pjl SET B=%d&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='C' PJLCommand='@PJL COMMENT c&#10;SET C=%d&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='D' PJLCommand='RESOLUTION = %d&#10;'/>",
        "<Feature FeatureType='MultiSelect' Name='E' DefaultValue='x' PJLCommand='%s&#10;'>",
        "<Option Name='x' PJLCommand='@PJL SET E=1'/><Option Name='y' PJLCommand='@PJLSET E=2'/>"
        "<Option Name='z' PJLCommand='SET E=3'/></Feature>",
        "<Feature FeatureType='IntEntry' Name='F' PJLCommand='  @PJL&#13;&#10;&#10;@PJL\tSET "
        "F=%d&#10;'/>"},
       "@:3:54: warning: PJLCommand of feature \"A\" writes the line \"@PLJ SET A=0\", which does "
       "not "
       "begin with @PJL; begin it with @PJL [DF514]\n"
       "@:4:54: warning: PJLCommand of feature \"B\" writes the line \"@pjl SET B=0\", which does "
       "not "
       "begin with @PJL; begin it with @PJL [DF514]\n"
       "@:5:73: warning: PJLCommand of feature \"C\" writes the line \"SET C=0\", which does not "
       "begin with @PJL; begin it with @PJL [DF514]\n"
       "@:6:54: warning: PJLCommand of feature \"D\" writes the line \"RESOLUTION = 0\", which "
       "does "
       "not begin with @PJL; begin it with @PJL [DF514]\n"
       "@:8:74: warning: PJLCommand of option \"y\" of feature \"E\" writes the line \"@PJLSET "
       "E=2\", "
       "which does not begin with @PJL; begin it with @PJL [DF514]\n"},
      {"lines of other languages",
       {"<Feature FeatureType='IntEntry' Name='A' PJLCommand='!R! RES %d; EXIT;&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='B' PJLCommand='SET %d&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='C' PJLCommand='Some text: SET=%d&#10;'/>"},
       ""},
      {"lines after ENTER LANGUAGE; data are not PJL",
       {"<Feature FeatureType='IntEntry' Name='A' "
        "PJLCommand='@PJL enter  language = PCL&#10;data %d \"&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='B' PJLCommand='@PJL SET B=%d&#10;'/>",
        "<Feature FeatureType='IntEntry' Name='C' PJLCommand='@PJL SET C=%d&#10;'/>"},
       "@:4:54: error: PJLCommand of feature \"B\" is written after ENTER LANGUAGE; give it "
       "a name that sorts first, or put ENTER LANGUAGE into a group [DF515]\n"
       "@:5:54: error: PJLCommand of feature \"C\" is written after ENTER LANGUAGE; give it "
       "a name that sorts first, or put ENTER LANGUAGE into a group [DF515]\n"},
      {"routines, which may write anything",
       {"<Feature FeatureType='IntEntry' Name='A' PJLCommand='@PJL ENTER LANGUAGE=PCL %d&#10;'/>",
        "<Feature FeatureType='UIOnly' Name='B' AddPJLCallbackRoutine='writeBytes'/>",
        "<Feature FeatureType='IntEntry' Name='C' PJLCommand='@PJL SET C=%d&#10;'/>"},
       ""},
      {"text without a default, and where an empty text does no harm",
       {"<Feature FeatureType='TextEntry' Name='A' TextValidationCharSet='a' "
        "PJLCommand='@PJL SET A=%s&#10;'/>",
        "<Feature FeatureType='TextEntry' Name='B' TextValidationCharSet='a' DefaultValue='' "
        "PJLCommand='@PJL SET B = &quot;%s&quot;&#13;&#10;'/>",
        "<Feature FeatureType='TextEntry' Name='C' TextValidationCharSet='a' "
        "PJLCommand='@PJL SET C=&quot;c=%s&quot;&#10;'/>",
        "<Feature FeatureType='TextEntry' Name='D' TextValidationCharSet='a' DefaultValue='a' "
        "PJLCommand='@PJL SET D=%s&#10;'/>",
        "<Feature FeatureType='TextEntry' Name='E' TextValidationCharSet='a' "
        "PJLCommand='@PJL COMMENT %s&#10;'/>"},
       "@:3:92: warning: PJLCommand of feature \"A\" is written without a value, because the "
       "default "
       "is empty; give DefaultValue, or write the command with a routine [DF518]\n"
       "@:4:116: warning: PJLCommand of feature \"B\" is written without a value, because the "
       "default "
       "is empty; give DefaultValue, or write the command with a routine [DF518]\n"},
  };
  return kRows;
}
