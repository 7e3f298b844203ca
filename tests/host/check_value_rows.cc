// Values, defaults and names.

#include "host/check_rows.h"

const std::vector<CheckRow>& valueRows() {
  static const std::vector<CheckRow> kRows = {
      {"texts that do not convert",
       {"<Feature FeatureType='IntEntry' Name='A' IntMinValue=' 1' Visibility='yes'/>",
        "<Feature FeatureType='FloatEntry' Name='B' DefaultValue='1,5'/>",
        "<Feature FeatureType='TextEntry' Name='C' MaxTextLength='2147483648'/>"},
       "@:3:42: error: \" 1\" is not a value for \"IntMinValue\" of feature \"A\"; give a whole "
       "number from -2147483648 to 2147483647, without blanks [DF301]\n"
       "    log: AttributeMap::loadMapVariable() - Attribute \"IntMinValue\" holds \" 1\" where a "
       "decimal 32-bit number is needed.\n"
       "@:3:59: error: \"yes\" is not a value for \"Visibility\" of feature \"A\"; give true, "
       "false, 1 or 0 [DF301]\n"
       "    log: AttributeMap::loadMapVariable() - Attribute \"Visibility\" holds \"yes\" where "
       "\"true\", \"false\", \"1\" or \"0\" is needed.\n"
       "@:4:44: error: \"1,5\" is not a value for \"DefaultValue\" of feature \"B\"; give a "
       "decimal number with a point, without blanks [DF301]\n"
       "    log: AttributeMap::loadMapVariable() - Attribute \"DefaultValue\" holds \"1,5\" where "
       "a decimal number is needed.\n"
       "@:5:43: error: \"2147483648\" is not a value for \"MaxTextLength\" of feature \"C\"; give "
       "a "
       "whole number from -2147483648 to 2147483647, without blanks [DF301]\n"
       "    log: AttributeMap::loadMapVariable() - Attribute \"MaxTextLength\" holds "
       "\"2147483648\" where a decimal 32-bit number is needed.\n"},
      {"default that is not an option",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='a3'><Option Name='A4'/>"
        "<Option Name='A3'/></Feature>",
        "<Feature FeatureType='MultiSelect' Name='B' DefaultValue='Legal'><Option Name='A4'/>"
        "<Option Name='A3'/></Feature>"},
       "@:3:45: error: \"a3\" is not an option of feature \"A\"; its first option \"A4\" is taken; "
       "did "
       "you mean \"A3\"? [DF302]\n"
       "    log: CreateFeature() - Cannot find default option \"a3\" for feature \"A\", using 0.\n"
       "@:4:45: error: \"Legal\" is not an option of feature \"B\"; its first option \"A4\" is "
       "taken; "
       "choose one of A4, A3 [DF302]\n"
       "    log: CreateFeature() - Cannot find default option \"Legal\" for feature \"B\", using "
       "0.\n"},
      {"list without a default",
       {"<Feature FeatureType='MultiSelect' Name='A'><Option Name='A4'/></Feature>"},
       "@:3:1: warning: feature \"A\" has no default; its first option \"A4\" is taken; name the "
       "default option in DefaultValue [DF303]\n"
       "    log: CreateFeature() - No default value for feature \"A\", using 0.\n"},
      {"defaults outside of the limits; the limits themselves are inside",
       {"<Feature FeatureType='IntEntry' Name='A' IntMinValue='1' IntMaxValue='9' "
        "DefaultValue='10'/>",
        "<Feature FeatureType='FloatEntry' Name='B' FloatMinValue='0.5' DefaultValue='0.4'/>",
        "<Feature FeatureType='IntEntry' Name='C' IntMinValue='1' IntMaxValue='9' "
        "DefaultValue='9'/>",
        "<Feature FeatureType='FloatEntry' Name='D' FloatMinValue='0.5' DefaultValue='0.5'/>"},
       "@:3:74: error: the default 10 of feature \"A\" is above its maximum 9; correct "
       "DefaultValue or IntMaxValue [DF304]\n"
       "@:4:64: error: the default 0.4 of feature \"B\" is below its minimum 0.5; correct "
       "DefaultValue or FloatMinValue [DF304]\n"},
      {"limits that leave out 0, which is taken without a default; not of a default that is wrong",
       {"<Feature FeatureType='IntEntry' Name='A' IntMinValue='1'/>",
        "<Feature FeatureType='FloatEntry' Name='B' FloatMaxValue='-0.5'/>",
        "<Feature FeatureType='IntEntry' Name='C' IntMinValue='0' IntMaxValue='9'/>",
        "<Feature FeatureType='IntEntry' Name='D' IntMinValue='1' DefaultValue='x'/>"},
       "@:3:42: error: feature \"A\" has no default, and 0, which is taken, is below its minimum "
       "1; "
       "give DefaultValue [DF304]\n"
       "@:4:44: error: feature \"B\" has no default, and 0, which is taken, is above its maximum "
       "-0.5; give DefaultValue [DF304]\n"
       "@:6:58: error: \"x\" is not a value for \"DefaultValue\" of feature \"D\"; give a whole "
       "number from -2147483648 to 2147483647, without blanks [DF301]\n"
       "    log: AttributeMap::loadMapVariable() - Attribute \"DefaultValue\" holds \"x\" where a "
       "decimal 32-bit number is needed.\n"},
      {"defaults that users cannot choose, unless the whole feature is unavailable",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='y'><Option Name='x'/>"
        "<Option Name='y' Sensitivity='false'/></Feature>",
        "<Feature FeatureType='MultiSelect' Name='B' DefaultValue='x'><Option Name='x' "
        "Sensitivity='true'/><Option Name='y' Sensitivity='0'/></Feature>",
        "<Feature FeatureType='MultiSelect' Name='C' DefaultValue='x' Sensitivity='false'>"
        "<Option Name='x' Sensitivity='false'/></Feature>",
        "<Feature FeatureType='MultiSelect' Name='D'><Option Name='x' Sensitivity='0'/>"
        "</Feature>"},
       "@:3:45: warning: the default \"y\" of feature \"A\" is unavailable, by Sensitivity of its "
       "option; choose another default, or make the option available [DF312]\n"
       "@:6:1: warning: the default \"x\" of feature \"D\" is unavailable, by Sensitivity of its "
       "option; choose another default, or make the option available [DF312]\n"
       "@:6:1: warning: feature \"D\" has no default; its first option \"x\" is taken; name the "
       "default option in DefaultValue [DF303]\n"
       "    log: CreateFeature() - No default value for feature \"D\", using 0.\n"},
      {"ranges in a character set; signs between characters that are there are none",
       {"<Feature FeatureType='TextEntry' Name='A' TextValidationCharSet='_A-Z0-9'/>",
        "<Feature FeatureType='TextEntry' Name='B' TextValidationCharSet='0123456789-abc-def'/>",
        "<Feature FeatureType='TextEntry' Name='C' TextValidationCharSet='z-a9-0A-z1-1'/>"},
       "@:3:67: warning: TextValidationCharSet of feature \"A\" takes \"A-Z\" as three characters, "
       "not as a range; list all characters of the range [DF313]\n"},
      {"references that are text",
       {"<Feature FeatureType='IntEntry' Name='A' PSCommand='&amp;lt;&lt; /A %d >>'/>",
        "<Feature FeatureType='MultiSelect' Name='B' DefaultValue='&amp;#xE4;'>"
        "<Option Name='&amp;#xE4;'/></Feature>",
        "<Feature FeatureType='UIOnly' Name='R&amp;D; A &amp; B &amp;#; &amp;#x; &amp;#12'/>"},
       "@:3:53: warning: PSCommand of feature \"A\" holds the text \"&lt;\" instead of the "
       "character; write &lt; in place of &amp;lt; [DF314]\n"
       "@:3:73: warning: \">\" in PSCommand of feature \"A\" closes nothing; open it, or remove it "
       "[DF510]\n"
       "@:4:59: warning: DefaultValue of feature \"B\" holds the text \"&#xE4;\" instead of the "
       "character; write &#xE4; in place of &amp;#xE4; [DF314]\n"
       "@:4:85: warning: Name of option \"&#xE4;\" of feature \"B\" holds the text \"&#xE4;\" "
       "instead of the character; write &#xE4; in place of &amp;#xE4; [DF314]\n"},
      {"default too long, in characters",
       {"<Feature FeatureType='TextEntry' Name='A' MaxTextLength='2' "
        "DefaultValue='\xC3\xA4\xC3\xB6'/>",
        "<Feature FeatureType='TextEntry' Name='B' MaxTextLength='2' DefaultValue='abcd'/>"},
       "@:4:61: error: the default of feature \"B\" has 4 characters, 2 more than MaxTextLength "
       "allows; shorten DefaultValue or raise MaxTextLength [DF305]\n"},
      {"default with a character that is not allowed",
       {"<Feature FeatureType='TextEntry' Name='A' TextValidationCharSet='01\xC3\xA4' "
        "DefaultValue='0\xC3\xA4\xC3\xB6'/>"},
       "@:3:87: error: the default of feature \"A\" holds \"\xC3\xB6\", which is not in "
       "TextValidationCharSet; remove the character or add it to the set [DF306]\n"},
      {"minimum above the maximum; the same is none",
       {"<Feature FeatureType='IntEntry' Name='A' IntMaxValue='1' IntMinValue='2'/>",
        "<Feature FeatureType='IntEntry' Name='B' IntMaxValue='1' IntMinValue='1' "
        "DefaultValue='1'/>"},
       "@:3:58: error: the minimum 2 of feature \"A\" is above its maximum 1; swap IntMinValue "
       "and IntMaxValue or correct them [DF307]\n"},
      {"length that is not a limit",
       {"<Feature FeatureType='TextEntry' Name='A' MaxTextLength='0' DefaultValue='a'/>"},
       "@:3:43: warning: a MaxTextLength of 0 does not limit the text of feature \"A\"; give 1 or "
       "more, or remove the attribute [DF308]\n"},
      {"text of any characters, written to PostScript; in the ticket it does no harm",
       {"<Feature FeatureType='TextEntry' Name='A' PSCommand='(%s)'/>",
        "<Feature FeatureType='TextEntry' Name='B' TESKJTAttributeName='b' "
        "TESKAttributeSyntax='name'/>"},
       "@:3:1: warning: the text of feature \"A\" may hold any character, control characters "
       "included; list the characters that are safe in its commands in TextValidationCharSet "
       "[DF309]\n"},
      {"characters that end what they are written into",
       {"<Feature FeatureType='TextEntry' Name='A' TextValidationCharSet='a&#10;' "
        "AddPSCallbackRoutine='writeBytes'/>",
        "<Feature FeatureType='TextEntry' Name='B' TextValidationCharSet='a&quot;)' "
        "PJLCommand='&quot;%s&quot;&#10;' PSCommand='(%s)'/>",
        "<Feature FeatureType='TextEntry' Name='C' TextValidationCharSet='a&quot;)' "
        "PJLCommand='%s&#10;' PSCommand='/%s'/>"},
       "@:3:67: warning: TextValidationCharSet of feature \"A\" allows a control character, which "
       "can end the command; remove it from the set [DF310]\n"
       "@:4:67: warning: TextValidationCharSet of feature \"B\" allows a quotation mark, which "
       "ends the PJL string; remove it from the set [DF310]\n"
       "@:4:73: warning: TextValidationCharSet of feature \"B\" allows a parenthesis or backslash, "
       "which can end the PostScript string; remove it from the set [DF310]\n"
       "@:5:73: warning: TextValidationCharSet of feature \"C\" allows a delimiter, blank or byte "
       "beyond ASCII, which ends the PostScript token; remove it from the set [DF310]\n"},
      {"characters that end what the group writes them into, and other places",
       {"<Feature FeatureType='TextEntry' Name='A' TextValidationCharSet='a@#&quot;' "
        "PJLCommand='%s&#10;' PSCommand='%%%% %s&#10;'/>",
        "<Feature FeatureType='TextEntry' Name='B' TextValidationCharSet='0Fg' "
        "PSCommand='&lt;%s>'/>",
        "<FeatureStaticGroup Name='G' PJLCommand='@PJL SET X=&quot;a=%s&quot;&#10;'>",
        "<Feature FeatureType='TextEntry' Name='C' TextValidationCharSet='a@#&quot;' "
        "PJLCommand='b=%s'/></FeatureStaticGroup>"},
       "@:3:67: warning: TextValidationCharSet of feature \"A\" allows an at sign, which begins a "
       "PJL command; remove it from the set [DF310]\n"
       "@:4:68: warning: TextValidationCharSet of feature \"B\" allows a character that can end "
       "the "
       "encoded PostScript string; remove it from the set [DF310]\n"
       "@:6:69: warning: TextValidationCharSet of feature \"C\" allows a quotation mark, which "
       "ends the PJL string; remove it from the set [DF310]\n"},
      {"control characters are reported once; a string that an inner group ends",
       {"<Feature FeatureType='TextEntry' Name='A' TextValidationCharSet='a&#10;' "
        "PJLCommand='&quot;%s&quot;&#10;' PSCommand='(%s)'/>",
        "<FeatureStaticGroup Name='G' PSCommand='(%s)'>",
        "<FeatureStaticGroup Name='H' PSCommand=') /%s ('>",
        "<Feature FeatureType='TextEntry' Name='B' TextValidationCharSet='a b' PSCommand='%s'/>"
        "</FeatureStaticGroup></FeatureStaticGroup>"},
       "@:3:67: warning: TextValidationCharSet of feature \"A\" allows a control character, which "
       "can end the command; remove it from the set [DF310]\n"
       "@:6:67: warning: TextValidationCharSet of feature \"B\" allows a delimiter, blank or byte "
       "beyond ASCII, which ends the PostScript token; remove it from the set [DF310]\n"},
      {"number beyond single precision",
       {"<Feature FeatureType='FloatEntry' Name='A' FloatMaxValue='1e39'/>"},
       "@:3:44: error: \"1e39\" is too large for \"FloatMaxValue\" of feature \"A\"; give a number "
       "from -3.4e38 to 3.4e38 [DF311]\n"},
      {"two features of one name, one in a group",
       {"<Feature FeatureType='UIOnly' Name='A'/>",
        "<FeatureStaticGroup Name='G' PSCommand='%s'><Feature FeatureType='IntEntry' Name='A' "
        "PSCommand='%d '/></FeatureStaticGroup>"},
       "@:4:77: error: feature \"A\" replaces the one of line 3; give each feature a name of its "
       "own [DF401]\n"},
      {"groups whose names are taken; an inner group is filed before its outer",
       {"<FeatureStaticGroup Name='G' PSCommand='%s'>",
        "<FeatureStaticGroup Name='G' PSCommand='%s'><Feature FeatureType='UIOnly' Name='A' "
        "AddPSCallbackRoutine='writeBytes'/></FeatureStaticGroup></FeatureStaticGroup>",
        "<FeatureDynamicGroup Name='A' SortFunctionName='testUpdate'>"
        "<FeatureStaticGroup Name='T'><Feature FeatureType='UIOnly' Name='B'/>"
        "</FeatureStaticGroup></FeatureDynamicGroup>"},
       "@:3:21: error: static group \"G\" is not found by its name; static group \"G\" of line 4 "
       "is found in its place; give each group a name of its own [DF402]\n"
       "@:5:22: error: dynamic group \"A\" is not found by its name; feature \"A\" of line 4 is "
       "found in its place; give each group a name of its own [DF402]\n"},
      {"two options of one name",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x'>", "<Option Name='x'/>",
        "<Option Name='x'/></Feature>"},
       "@:5:9: error: option \"x\" of feature \"A\" is not found by its name; the one of line 4 "
       "is; give each option of a feature a name of its own [DF403]\n"},
      {"blanks around names, which a blank inside is not",
       {"<Feature FeatureType='MultiSelect' Name=' A' DefaultValue='x '><Option Name='x '/>"
        "<Option Name='x y'/></Feature>",
        "<FeatureStaticGroup Name='G&#10;' AddPSCallbackRoutine='writeBytes'>"
        "<Feature FeatureType='UIOnly' Name=' '/></FeatureStaticGroup>"},
       "@:3:42: warning: the name of feature \" A\" begins with a blank; remove the blank [DF405]\n"
       "@:3:79: warning: the name of option \"x \" of feature \" A\" ends with a blank; remove the "
       "blank [DF405]\n"
       "@:4:28: warning: the name of static group \"G\\n\" ends with a blank; remove the blank "
       "[DF405]\n"
       "@:4:105: warning: the name of feature \" \" begins with a blank; remove the blank "
       "[DF405]\n"},
      {"equals signs in names and keys of features; elsewhere they do no harm",
       {"<Feature FeatureType='MultiSelect' Name='A=B' DefaultValue='x=y' CLOKey='a='>"
        "<Option Name='x=y' CLOKey='x='/></Feature>"},
       "@:3:43: warning: Name of feature \"A=B\" holds \"=\", at which settings are split into "
       "name "
       "and value; use another character [DF406]\n"
       "@:3:75: warning: CLOKey of feature \"A=B\" holds \"=\", at which settings are split into "
       "name and value; use another character [DF406]\n"},
      {"keys given twice; options of other features and members of records do not count",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x' CLOKey='k'>",
        "<Option Name='x' CLOKey='o'/><Option Name='y' CLOKey='o'/></Feature>",
        "<Feature FeatureType='MultiSelect' Name='B' DefaultValue='x' CLOKey='k'>",
        "<Option Name='x' CLOKey='o'/><Option Name='y' CLOKey=''/><Option Name='z' CLOKey=''/>",
        "</Feature><FeatureDynamicGroup Name='D' SortFunctionName='testUpdate'>",
        "<FeatureStaticGroup Name='T'><Feature FeatureType='UIOnly' Name='C' CLOKey='k'/>"
        "</FeatureStaticGroup></FeatureDynamicGroup>"},
       "@:4:47: warning: CLOKey of option \"y\" of feature \"A\" is that of option \"x\" of "
       "feature "
       "\"A\" in line 4, too; give each a key of its own [DF407]\n"
       "@:5:62: warning: CLOKey of feature \"B\" is that of feature \"A\" in line 3, too; give "
       "each "
       "a key of its own [DF407]\n"},
      {"empty name",
       {"<Feature FeatureType='UIOnly' Name=''/>"},
       "@:3:31: error: the name of this element <Feature> is empty; name it [DF404]\n"},
  };
  return kRows;
}
