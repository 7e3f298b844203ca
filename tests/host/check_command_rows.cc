// Command templates and the commands of options.

#include "host/check_rows.h"

const std::vector<CheckRow>& commandRows() {
  static const std::vector<CheckRow> kRows = {
      {"templates that can never be formatted",
       {"<Feature FeatureType='IntEntry' Name='A' PSCommand='100%'/>",
        "<Feature FeatureType='IntEntry' Name='B' PSCommand='%d of %d'/>",
        "<Feature FeatureType='IntEntry' Name='C' PSCommand='%n'/>",
        "<Feature FeatureType='IntEntry' Name='D' PSCommand='%4097d x'/>",
        "<FeatureStaticGroup Name='G' PSCommand='%*s'><Feature FeatureType='UIOnly' Name='E'/>"
        "</FeatureStaticGroup>"},
       "@:3:56: error: PSCommand of feature \"A\" can never be written: it ends with a lone per "
       "cent sign; write one conversion for the value, and %% for a per cent sign [DF501]\n"
       "    log: createTicketPDLAttributes() - Cannot format value with command template "
       "\"100%\"\n"
       "@:4:59: error: PSCommand of feature \"B\" can never be written: it holds a second "
       "conversion; write one conversion for the value, and %% for a per cent sign [DF501]\n"
       "    log: createTicketPDLAttributes() - Cannot format value with command template "
       "\"%d of %d\"\n"
       "@:5:53: error: PSCommand of feature \"C\" can never be written: \"%n\" is not a "
       "conversion; write one conversion for the value, and %% for a per cent sign [DF501]\n"
       "    log: createTicketPDLAttributes() - Cannot format value with command template \"%n\"\n"
       "@:6:53: error: PSCommand of feature \"D\" can never be written: \"%4097d x\" does "
       "not begin a conversion, or begins one with a width or precision above 4096; write one "
       "conversion for the value, and %% for a per cent sign [DF501]\n"
       "    log: createTicketPDLAttributes() - Cannot format value with command template "
       "\"%4097d x\"\n"
       "@:7:41: error: PSCommand of static group \"G\" can never be written: \"%*\" is not a "
       "conversion; write one conversion for the value, and %% for a per cent sign [DF501]\n"
       "    log: processPSStaticGroup() - Cannot format text with command template \"%*s\"\n"},
      {"conversions that do not fit",
       {"<Feature FeatureType='IntEntry' Name='A' PSCommand='%5.1f'/>",
        "<Feature FeatureType='FloatEntry' Name='B' PSCommand='%d'/>",
        "<FeatureStaticGroup Name='G' PJLCommand='%d&#10;'>"
        "<Feature FeatureType='UIOnly' Name='C'/></FeatureStaticGroup>",
        "<Feature FeatureType='FloatEntry' Name='D' PSCommand='%s'/>",
        "<Feature FeatureType='TextEntry' Name='E' PSCommand='%x' TextValidationCharSet='a'/>"},
       "@:3:53: error: PSCommand of feature \"A\" can never be written: \"%5.1f\" does not fit its "
       "value; use a conversion for a whole number (d, i, u, x, X, o or c) [DF502]\n"
       "    log: createTicketPDLAttributes() - Cannot format value with command template "
       "\"%5.1f\"\n"
       "@:4:55: error: PSCommand of feature \"B\" can never be written: \"%d\" does not fit its "
       "value; use a conversion for a decimal number (f, F, e, E, g, G, a or A) [DF502]\n"
       "    log: createTicketPDLAttributes() - Cannot format value with command template \"%d\"\n"
       "@:5:42: error: PJLCommand of static group \"G\" can never be written: \"%d\" does not fit "
       "its value; use a conversion for a text (s) [DF502]\n"
       "    log: processPJLStaticGroup() - Cannot format text with command template \"%d\\n\"\n"
       "@:6:55: error: PSCommand of feature \"D\" can never be written: \"%s\" does not fit its "
       "value; use a conversion for a decimal number (f, F, e, E, g, G, a or A) [DF502]\n"
       "    log: createTicketPDLAttributes() - Cannot format value with command template \"%s\"\n"
       "@:7:54: error: PSCommand of feature \"E\" can never be written: \"%x\" does not fit its "
       "value; use a conversion for a text (s) [DF502]\n"
       "    log: createTicketPDLAttributes() - Cannot format value with command template "
       "\"%x\"\n"},
      {"templates without a conversion",
       {"<Feature FeatureType='IntEntry' Name='A' PSCommand='100%% copies&#10;'/>",
        "<FeatureStaticGroup Name='G' PSCommand='begin'>"
        "<Feature FeatureType='UIOnly' Name='B'/></FeatureStaticGroup>"},
       "@:3:42: warning: PSCommand of feature \"A\" does not write its value; put a conversion for "
       "a whole number (d, i, u, x, X, o or c) into it [DF503]\n"
       "@:4:30: warning: PSCommand of static group \"G\" does not write the text of its members; "
       "put a conversion for a text (s) into it [DF503]\n"},
      {"PJL lines without an end: of a feature, an option and a member",
       {"<Feature FeatureType='IntEntry' Name='A' PJLCommand='@PJL SET A=%d'/>",
        "<Feature FeatureType='MultiSelect' Name='B' DefaultValue='x' PJLCommand='@PJL SET %s'>",
        "<Option Name='x' PJLCommand='B=1&#10;'/><Option Name='y' PJLCommand='B=2'/></Feature>",
        "<FeatureStaticGroup Name='G' PJLCommand='%s'>",
        "<Feature FeatureType='IntEntry' Name='C' PJLCommand='@PJL SET "
        "C=%d'/></FeatureStaticGroup>",
        "<FeatureStaticGroup Name='H' PJLCommand='%s&#13;&#10;'>",
        "<Feature FeatureType='IntEntry' Name='D' PJLCommand='@PJL SET "
        "D=%d'/></FeatureStaticGroup>"},
       "@:3:42: warning: PJLCommand of feature \"A\" does not end its line; end it with "
       "&#13;&#10; [DF504]\n"
       "@:5:58: warning: PJLCommand of option \"y\" of feature \"B\" does not end its line; end it "
       "with &#13;&#10; [DF504]\n"
       "@:7:42: warning: PJLCommand of feature \"C\" does not end its line; end it with "
       "&#13;&#10; [DF504]\n"},
      {"characters that PJL cannot carry",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x' PJLCommand='A=%s&#9;&#10;'>",
        "<Option Name='x' PJLCommand='~\xC3\xA4'/></Feature>",
        "<Feature FeatureType='IntEntry' Name='B' PJLCommand='\x7F%d&#10;'/>"},
       "@:4:31: error: PJLCommand of option \"x\" of feature \"A\" holds \"\xC3\xA4\", which PJL "
       "cannot carry; use ASCII characters only [DF505]\n"
       "@:5:54: error: PJLCommand of feature \"B\" holds \"\\x7f\", which PJL cannot carry; use "
       "ASCII characters only [DF505]\n"},
      {"the end of a job, which is written after it, and its PostScript, which is not",
       {"<Feature FeatureType='MultiSelect' Name='JCLEnd' DefaultValue='True'>",
        "<Option Name='True' PJLCommand='@PJL EOJ&#10;' PSCommand='a'/></Feature>"},
       "@:4:48: warning: PSCommand of the options of feature \"JCLEnd\" is never written; give the "
       "feature PSCommand or AddPSCallbackRoutine, or remove it from the options [DF506]\n"},
      {"options' commands that nothing writes",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x'>",
        "<Option Name='x' PSCommand='a' PJLCommand='b' TESKCommand='c'/></Feature>",
        "<FeatureStaticGroup Name='G' AddPSCallbackRoutine='writeBytes'>",
        "<Feature FeatureType='MultiSelect' Name='B' DefaultValue='x'>",
        "<Option Name='x' PSCommand='a'/></Feature></FeatureStaticGroup>"},
       "@:4:18: warning: PSCommand of the options of feature \"A\" is never written; give the "
       "feature PSCommand or AddPSCallbackRoutine, or remove it from the options [DF506]\n"
       "@:4:32: warning: PJLCommand of the options of feature \"A\" is never written; give the "
       "feature PJLCommand or AddPJLCallbackRoutine, or remove it from the options [DF506]\n"
       "@:4:47: warning: TESKCommand of the options of feature \"A\" is never written; give the "
       "feature TESKJTAttributeName or AddVORNCallbackRoutine, or remove it from the options "
       "[DF506]\n"},
      {"options without the command of their feature",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x' PSCommand='%s '>",
        "<Option Name='x' PSCommand='a'/><Option Name='y'/><Option Name='z' PSCommand=''/>",
        "</Feature>",
        "<Feature FeatureType='MultiSelect' Name='B' DefaultValue='y' PSCommand='%s'>",
        "<Option Name='x' PSCommand='a'/><Option Name='y'/></Feature>"},
       "@:4:33: warning: option \"y\" of feature \"A\" has no PSCommand, like 1 more of the "
       "feature's options; "
       "the feature's command is written with nothing in its place; give the option a PSCommand "
       "[DF507]\n"},
      {"commands of features without a value",
       {"<Feature FeatureType='UIOnly' Name='A' PSCommand='a'/>"},
       "@:3:40: error: PSCommand of feature \"A\" is never written, because UIOnly features have "
       "no value; write it by a routine, or give the feature another type [DF508]\n"
       "    log: createTicketPDLAttributes() - Feature has an invalid feature type\n"},
  };
  return kRows;
}
