// Elements and attributes.

#include "host/check_rows.h"

const std::vector<CheckRow>& structureRows() {
  static const std::vector<CheckRow> kRows = {
      {"element unknown in a description",
       {"<Feture FeatureType='UIOnly' Name='A'/>"},
       "@:3:1: error: element <Feture> is not allowed in a FeatureDescription; did you mean "
       "\"Feature\"? [DF101]\n"
       "    log: FeatureXMLTagHandler() - Invalid element tag \"Feture\".\n"
       "@: note: the library does not load the description (exit status 1)\n"
       "    log: FeatureXMLTagHandler() - Invalid element tag \"Feture\".\n"},
      {"element unknown in a group",
       {"<FeatureStaticGroup Name='G' AddPSCallbackRoutine='writeBytes'>", " <Option/>",
        "</FeatureStaticGroup>"},
       "@:4:2: error: element <Option> is not allowed in a static group; use one of Feature, "
       "FeatureStaticGroup [DF101]\n"
       "    log: CreateStaticFeatureGroup() - Invalid node tag \"Option\".\n"
       "@: note: the library does not load the description (exit status 1)\n"
       "    log: CreateStaticFeatureGroup() - Invalid node tag \"Option\".\n"},
      {"feature as a template",
       {"<FeatureDynamicGroup Name='D' SortFunctionName='testUpdate'>",
        "<Feature FeatureType='UIOnly' Name='A'/></FeatureDynamicGroup>"},
       "@:4:1: error: element <Feature> is not allowed in a dynamic group; use one of "
       "FeatureStaticGroup [DF101]\n"
       "    log: CreateDynamicFeatureGroup() - Invalid node tag \"Feature\".\n"
       "@: note: the library does not load the description (exit status 1)\n"
       "    log: CreateDynamicFeatureGroup() - Invalid node tag \"Feature\".\n"},
      {"group without members, inside of two others",
       {"<FeatureDynamicGroup Name='D' SortFunctionName='testUpdate'>",
        "<FeatureStaticGroup Name='T'>", "<FeatureStaticGroup Name='E'/>",
        "</FeatureStaticGroup></FeatureDynamicGroup>"},
       "@:5:1: error: static group \"E\" has no members; add a <Feature> or a "
       "<FeatureStaticGroup>, or remove the group [DF102]\n"
       "    log: CreateStaticFeatureGroup() - No features for feature group\n"
       "    log: CreateStaticFeatureGroup() - Cannot create nested static feature group to feature "
       "group \"T\".\n"
       "    log: CreateDynamicFeatureGroup() - Cannot create template static feature group to "
       "feature group \"D\".\n"
       "@: note: the library does not load the description (exit status 1)\n"
       "    log: CreateStaticFeatureGroup() - No features for feature group\n"
       "    log: CreateStaticFeatureGroup() - Cannot create nested static feature group to feature "
       "group \"T\".\n"
       "    log: CreateDynamicFeatureGroup() - Cannot create template static feature group to "
       "feature group \"D\".\n"},
      {"dynamic group without a template",
       {"<FeatureDynamicGroup Name='D' SortFunctionName='testUpdate'/>"},
       "@:3:1: error: dynamic group \"D\" has 0 children; give it exactly one "
       "<FeatureStaticGroup>, the template of its records [DF103]\n"
       "    log: CreateDynamicFeatureGroup() - Wrong number of subnodes for dynamic group\n"
       "@: note: the library does not load the description (exit status 1)\n"
       "    log: CreateDynamicFeatureGroup() - Wrong number of subnodes for dynamic group\n"},
      {"list without options",
       {"<FeatureStaticGroup Name='G' AddPSCallbackRoutine='writeBytes'>",
        "<Feature FeatureType='MultiSelect' Name='A'/></FeatureStaticGroup>"},
       "@:4:1: error: feature \"A\" has no options; add an <Option> for each choice [DF104]\n"
       "    log: CreateFeature() - No options for MultiSelect feature\n"
       "    log: CreateStaticFeatureGroup() - Could not create feature for feature group\n"
       "@: note: the library does not load the description (exit status 1)\n"
       "    log: CreateFeature() - No options for MultiSelect feature\n"
       "    log: CreateStaticFeatureGroup() - Could not create feature for feature group\n"},
      {"children where none are read",
       {"<Feature FeatureType='IntEntry' Name='A'><Option Name='x'><Any/></Option></Feature>",
        "<Feature FeatureType='MultiSelect' Name='B' DefaultValue='y'><Option Name='y'><Any/>"
        "</Option></Feature>"},
       "@:3:42: error: element <Option> inside feature \"A\" is not read; move it, or make the "
       "feature a MultiSelect to give it options [DF105]\n"
       "@:4:79: error: element <Any> inside option \"y\" of feature \"B\" is not read; move or "
       "remove it [DF105]\n"},
      {"option of another name",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x'><Optoin Name='x'/>"
        "</Feature>"},
       "@:3:62: warning: element <Optoin> is read as an option of feature \"A\"; name it <Option>, "
       "or move it out of the feature [DF106]\n"},
      {"two registrations",
       {"<BaseFeatureInfo DefaultCallbackHandler='testUpdate'/>"},
       "@:3:1: warning: this BaseFeatureInfo replaces the callbacks of line 2; remove one of them "
       "[DF109]\n"},
      {"fault of a list, which its options have no part in",
       {"<Feature FeatureType='MultiSelect' Nam='A' DefaultValue='x'><Option Name='x'/></Feature>"},
       "@:3:1: error: element <Feature> has no attribute \"Name\"; name it [DF201]\n"
       "    log: CreateFeature() - No name defined for feature\n"
       "@:3:36: error: there is no attribute \"Nam\" of element <Feature> (MultiSelect); did you "
       "mean \"Name\"? [DF203]\n"
       "@: note: the library does not load the description (exit status 1)\n"
       "    log: CreateFeature() - No name defined for feature\n"},
      {"fault of one option, of which its sibling has none",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x'>",
        "<Option Name='x'/><Optoin Name='y'/><Option Name='z'/></Feature>"},
       "@:4:19: warning: element <Optoin> is read as an option of feature \"A\"; name it <Option>, "
       "or move it out of the feature [DF106]\n"},
      {"text that nobody reads, beside other faults; comments and blanks are none",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x'>a<!-- b -->",
        "<Option Name='x' Zzz=''><![CDATA[text that goes on and on]]></Option></Feature>"},
       "@:3:62: error: the text \"a\" inside feature \"A\" is not read; remove it, or put it "
       "into a comment [DF111]\n"
       "@:4:18: error: there is no attribute \"Zzz\" of option \"x\" of feature \"A\"; remove it "
       "[DF203]\n"
       "@:4:34: error: the text \"text that goes on an...\" inside option \"x\" of feature "
       "\"A\" is not read; remove it, or put it into a comment [DF111]\n"},
      {"text on a line of its own, far from the start tag; each is reported where it is",
       {"<Feature FeatureType='IntEntry'", "Name='A'>", "", "  stray", "</Feature> and more"},
       "@:6:3: error: the text \"stray\" inside feature \"A\" is not read; remove it, or put it "
       "into a comment [DF111]\n"
       "@:7:12: error: the text \"and more\" inside element <FeatureDescription> is not read; "
       "remove it, or put it into a comment [DF111]\n"},
      {"byte escapes that an inner element asks for",
       {"<Feature FeatureType='IntEntry' Name='A' ByteEscapes='yes'/>"},
       "@:3:42: error: attribute \"ByteEscapes\" of feature \"A\" (IntEntry) is not read by every "
       "host; move it to <FeatureDescription> [DF204]\n"},
      {"options of another name, as many as there are",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x'>",
        "<Choice Name='x'/><Choice Name='y'/>", "<Choise Name='z'/><Choice Name='w'/></Feature>"},
       "@:4:1: warning: element <Choice> is read as an option of feature \"A\", as are 2 more of "
       "that name; name it <Option>, or move it out of the feature [DF106]\n"
       "@:5:1: warning: element <Choise> is read as an option of feature \"A\"; name it <Option>, "
       "or move it out of the feature [DF106]\n"},
      {"characters that cannot be seen, in names",
       {"<Feature FeatureType='MultiSelect' Name='A' DefaultValue='A&#xA0;4'>",
        "<Option Name='A 4'/></Feature>"},
       "@:3:45: error: \"AU+00A04\" is not an option of feature \"A\"; its first option \"A 4\" is "
       "taken; choose one of A 4 [DF302]\n"
       "    log: CreateFeature() - Cannot find default option \"A\xC2\xA0"
       "4\" for feature \"A\", "
       "using 0.\n"},
      {"attributes that are required, missing in the order of the load",
       {"<BaseFeatureInfo/>", "<Feature/>",
        "<Feature FeatureType='MultiSelect' Name='A' DefaultValue='x'>", "<Option/></Feature>",
        "<FeatureStaticGroup AddPSCallbackRoutine='writeBytes'><Feature FeatureType='UIOnly' "
        "Name='B'/>"
        "</FeatureStaticGroup>",
        "<FeatureDynamicGroup SortFunctionName='testUpdate'><FeatureStaticGroup Name='T'>"
        "<Feature FeatureType='UIOnly' Name='C'/></FeatureStaticGroup></FeatureDynamicGroup>"},
       "@:3:1: error: element <BaseFeatureInfo> has no attribute \"DefaultCallbackHandler\"; name "
       "the routine that the library calls after a change [DF201]\n"
       "    log: FeatureXMLTagHandler() - No Default Callback Handler element\n"
       "@:3:1: warning: this BaseFeatureInfo replaces the callbacks of line 2; remove one of them "
       "[DF109]\n"
       "@:4:1: error: element <Feature> has no attribute \"FeatureType\"; give one of UIOnly, "
       "MultiSelect, IntEntry, TextEntry, FloatEntry, MVCList [DF201]\n"
       "    log: CreateFeature() - No keyword defined for feature type\n"
       "@:4:1: error: element <Feature> has no attribute \"Name\"; name it [DF201]\n"
       "    log: CreateFeature() - No name defined for feature\n"
       "@:6:1: error: element <Option> has no attribute \"Name\"; name the option [DF201]\n"
       "    log: CreateFeatureOption() - No name defined for option\n"
       "    log: CreateFeature() - Could not create MultiSelect feature option\n"
       "@:7:1: error: element <FeatureStaticGroup> has no attribute \"Name\"; name it [DF201]\n"
       "    log: CreateStaticFeatureGroup() - No name defined for feature group\n"
       "@:8:1: error: element <FeatureDynamicGroup> has no attribute \"Name\"; name it [DF201]\n"
       "    log: CreateDynamicFeatureGroup() - No name defined for feature group\n"
       "@: note: the library does not load the description (exit status 1)\n"
       "    log: FeatureXMLTagHandler() - No Default Callback Handler element\n"},
      {"feature type misspelt in a nested group",
       {"<FeatureStaticGroup Name='G' PSCommand='%s'><FeatureStaticGroup Name='H' PSCommand='%s'>",
        "<Feature Name='A' FeatureType='Multiselect' PSCommand='%s'/></FeatureStaticGroup>"
        "</FeatureStaticGroup>"},
       "@:4:19: error: \"Multiselect\" is not a feature type; did you mean \"MultiSelect\"? "
       "[DF202]\n"
       "    log: CreateFeature() - Invalid feature type \"Multiselect\" for feature \"A\".\n"
       "    log: CreateStaticFeatureGroup() - Could not create feature for feature group\n"
       "    log: CreateStaticFeatureGroup() - Cannot create nested static feature group to feature "
       "group \"G\".\n"
       "@: note: the library does not load the description (exit status 1)\n"
       "    log: CreateFeature() - Invalid feature type \"Multiselect\" for feature \"A\".\n"
       "    log: CreateStaticFeatureGroup() - Could not create feature for feature group\n"
       "    log: CreateStaticFeatureGroup() - Cannot create nested static feature group to feature "
       "group \"G\".\n"},
      {"attributes that nothing has; those with a prefix are free",
       {"<Feature FeatureType='IntEntry' Name='A' DefualtValue='1' Zzz='' "
        "xmlns:o='urn:o' o:DefualtValue='1'/>"},
       "@:3:42: error: there is no attribute \"DefualtValue\" of feature \"A\" (IntEntry); did you "
       "mean \"DefaultValue\"? [DF203]\n"
       "@:3:59: error: there is no attribute \"Zzz\" of feature \"A\" (IntEntry); remove it "
       "[DF203]\n"},
      {"attributes of other types and elements",
       {"<Feature FeatureType='FloatEntry' Name='A' IntMinValue='1' Encrypted='true'/>",
        "<Feature FeatureType='UIOnly' Name='B' DefaultValue='1'/>",
        "<FeatureStaticGroup Name='G' PSCommand='%s' SortFunctionName='testUpdate'>"
        "<Feature FeatureType='UIOnly' Name='C' AddPSCallbackRoutine='writeBytes'/>"
        "</FeatureStaticGroup>"},
       "@:3:44: error: attribute \"IntMinValue\" has no effect on feature \"A\" (FloatEntry); "
       "remove it; it belongs to IntEntry features [DF204]\n"
       "@:3:60: error: attribute \"Encrypted\" has no effect on feature \"A\" (FloatEntry); remove "
       "it; it belongs to TextEntry features [DF204]\n"
       "    log: DriverFeature::setFeatureProperty(bool) - Attempt to set feature property:  "
       "\"Encrypted\" for feature \"A\" to \\x01where the feature is not a text valued feature.\n"
       "@:4:40: error: attribute \"DefaultValue\" has no effect on feature \"B\" (UIOnly); remove "
       "it; it belongs to MultiSelect features, TextEntry features, IntEntry features, FloatEntry "
       "features [DF204]\n"
       "@:5:45: error: attribute \"SortFunctionName\" has no effect on static group \"G\"; remove "
       "it; it belongs to dynamic groups [DF204]\n"},
  };
  return kRows;
}
