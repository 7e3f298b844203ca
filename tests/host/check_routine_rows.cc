// Routines, callbacks and the end of the load.

#include "host/check_rows.h"

const std::vector<CheckRow>& routineRows() {
  static const std::vector<CheckRow> kRows = {
      {"callbacks that nobody provides",
       {"<BaseFeatureInfo DefaultCallbackHandler='gone' LoadVORNCallbackHandler='gone2'/>"},
       "@:3:1: warning: this BaseFeatureInfo replaces the callbacks of line 2; remove one of them "
       "[DF109]\n"
       "@:3:18: error: there is no routine \"gone\" for the update callback; correct the name or "
       "give the library that has the routine with --callbacks [DF801]\n"
       "    log: FeatureXMLTagHandler() - Null Default Callback Handler pointer\n"
       "@:3:48: error: there is no routine \"gone2\" that loads ticket data; correct the name or "
       "give the library that has the routine with --callbacks [DF802]\n"
       "    log: FeatureXMLTagHandler() - Null Custom Load VORN Callback Handler pointer\n"
       "@: note: the library does not load the description (exit status 1)\n"
       "    log: FeatureXMLTagHandler() - Null Default Callback Handler pointer\n"},
      {"load routine that nobody provides is not the end, and a later fault is",
       {"<BaseFeatureInfo DefaultCallbackHandler='testUpdate' LoadVORNCallbackHandler='gone'/>",
        "<Other/>"},
       "@:3:1: warning: this BaseFeatureInfo replaces the callbacks of line 2; remove one of them "
       "[DF109]\n"
       "@:3:54: error: there is no routine \"gone\" that loads ticket data; correct the name or "
       "give the library that has the routine with --callbacks [DF802]\n"
       "    log: FeatureXMLTagHandler() - Null Custom Load VORN Callback Handler pointer\n"
       "@:4:1: error: element <Other> is not allowed in a FeatureDescription; use one of Feature, "
       "FeatureStaticGroup, FeatureDynamicGroup, BaseFeatureInfo [DF101]\n"
       "    log: FeatureXMLTagHandler() - Invalid element tag \"Other\".\n"
       "@: note: the library does not load the description (exit status 1)\n"
       "    log: FeatureXMLTagHandler() - Null Custom Load VORN Callback Handler pointer\n"
       "    log: FeatureXMLTagHandler() - Invalid element tag \"Other\".\n"},
      {"change routine",
       {"<Feature FeatureType='IntEntry' Name='A' AddCallbackRoutine='gone'/>",
        "<Feature FeatureType='IntEntry' Name='C' AddCallbackRoutine=''/>",
        "<Feature FeatureType='IntEntry' Name='B' AddCallbackRoutine='forbidDuplex'/>"},
       "@:3:42: error: there is no routine \"gone\" for AddCallbackRoutine of feature \"A\"; "
       "correct the name or give the library that has the routine with --callbacks [DF803]\n"
       "    log: DriverFeature::setFeatureProperty(string):  Failed to load custom feature "
       "callback:  gone\n"
       "@:4:42: error: there is no routine \"\" for AddCallbackRoutine of feature \"C\"; correct "
       "the name or give the library that has the routine with --callbacks [DF803]\n"
       "    log: DriverFeature::setFeatureProperty(string):  Failed to load custom feature "
       "callback:  \n"},
      {"output routines, at top level and in groups",
       {"<Feature FeatureType='IntEntry' Name='A' AddPJLCallbackRoutine='gone'/>",
        "<FeatureStaticGroup Name='G' AddVORNCallbackRoutine='gone' PSCommand='%s'>",
        "<Feature FeatureType='IntEntry' Name='B' AddPSCallbackRoutine='gone'/>",
        "</FeatureStaticGroup>", "<FeatureStaticGroup Name='H' AddPJLCallbackRoutine='gone'>",
        "<Feature FeatureType='UIOnly' Name='C'/></FeatureStaticGroup>"},
       "@:3:42: error: there is no routine \"gone\" for AddPJLCallbackRoutine of feature \"A\"; "
       "correct the name or give the library that has the routine with --callbacks [DF804]\n"
       "    log: serialize() - Cannot load PJL Command callback: gone\n"
       "@:4:30: error: there is no routine \"gone\" for AddVORNCallbackRoutine of static group "
       "\"G\"; correct the name or give the library that has the routine with --callbacks "
       "[DF804]\n"
       "    log: serialize() - Cannot load VORN Command callback: gone\n"
       "@:5:42: error: there is no routine \"gone\" for AddPSCallbackRoutine of feature \"B\"; "
       "correct the name or give the library that has the routine with --callbacks [DF804]\n"
       "    log: processPSStaticGroup() - Cannot load PS Command callback: gone\n"
       "@:7:30: error: there is no routine \"gone\" for AddPJLCallbackRoutine of static group "
       "\"H\"; correct the name or give the library that has the routine with --callbacks "
       "[DF804]\n"
       "    log: processPJLStaticGroup() - Cannot load PJL Command callback: gone\n"},
      {"sort routines",
       {"<FeatureDynamicGroup Name='D' SortFunctionName='gone'>",
        "<FeatureStaticGroup Name='T'><Feature FeatureType='UIOnly' Name='A'/>"
        "</FeatureStaticGroup></FeatureDynamicGroup>",
        "<FeatureDynamicGroup Name='E'>",
        "<FeatureStaticGroup Name='U'><Feature FeatureType='UIOnly' Name='B'/>"
        "</FeatureStaticGroup></FeatureDynamicGroup>"},
       "@:3:31: error: there is no routine \"gone\" for SortFunctionName of dynamic group \"D\"; "
       "correct the name or give the library that has the routine with --callbacks [DF805]\n"
       "    log: addStaticGroupToDynamicGroupWithSort:  Failed to load custom sort callback:  "
       "gone\n"
       "@:5:1: warning: dynamic group \"E\" does not name a sort routine; its records keep the "
       "order in which they are added; name a comparing routine in SortFunctionName if their order "
       "matters [DF806]\n"},
      {"routine that ends the process while the description is loaded",
       {"<BaseFeatureInfo DefaultCallbackHandler='endProcess'/>",
        "<Feature FeatureType='IntEntry' Name='A' Visibility='false'/>"},
       "@:1:1: error: the library did not load the description, because the routine "
       "\"endProcess\" of the description ended the process with exit status 7; let it return "
       "[DF901]\n"
       "@:3:1: warning: this BaseFeatureInfo replaces the callbacks of line 2; remove one of them "
       "[DF109]\n"
       "@: note: the library does not load the description (exit status 7)\n"},
      {"names of functions and variables that are not routines",
       {"<Feature FeatureType='IntEntry' Name='A' AddPSCallbackRoutine='getppid'/>",
        "<FeatureStaticGroup Name='G' AddVORNCallbackRoutine='routineCounter'>"
        "<Feature FeatureType='UIOnly' Name='B'/></FeatureStaticGroup>"},
       "@:3:42: error: \"getppid\", the AddPSCallbackRoutine of feature \"A\", is a function of "
       "libc.so.6, not a routine for a description; name a function of a library given with "
       "--callbacks [DF807]\n"
       "@:4:30: error: \"routineCounter\", the AddVORNCallbackRoutine of static group \"G\", is a "
       "variable of libhost_test_routines.so, not a routine; name a function of a library given "
       "with --callbacks [DF807]\n"},
      {"routines that do not return, and one that was meant",
       {"<Feature FeatureType='IntEntry' Name='A' AddPSCallbackRoutine='crashInOutput'/>",
        "<Feature FeatureType='IntEntry' Name='B' AddPJLCallbackRoutine='exitInOutput'/>",
        "<Feature FeatureType='IntEntry' Name='C' AddVORNCallbackRoutine='throwInOutput'/>",
        "<Feature FeatureType='IntEntry' Name='D' AddCallbackRoutine='forbidDuplx'/>",
        "<Feature FeatureType='IntEntry' Name='E' AddCallbackRoutine='writeOwner'/>"},
       "@:3:42: error: when the output was tried, the routine \"crashInOutput\" of the description "
       "crashed (signal 11, Segmentation fault); correct it [DF808]\n"
       "@:4:42: error: when the output was tried, the routine \"exitInOutput\" of the description "
       "ended the process with exit status 0; let it return [DF808]\n"
       "@:5:42: error: when the output was tried, the routine \"throwInOutput\" of the description "
       "threw an exception: no paper; catch it in the routine [DF808]\n"
       "@:6:42: error: there is no routine \"forbidDuplx\" for AddCallbackRoutine of feature "
       "\"D\"; did you mean \"forbidDuplex\"? [DF803]\n"
       "    log: DriverFeature::setFeatureProperty(string):  Failed to load custom feature "
       "callback:  forbidDuplx\n"
       "@:7:42: error: there is no routine \"writeOwner\" for AddCallbackRoutine of feature "
       "\"E\"; declare the C++ function writeOwner as extern \"C\", so that it has this name "
       "[DF803]\n"
       "    log: DriverFeature::setFeatureProperty(string):  Failed to load custom feature "
       "callback:  writeOwner\n"},
  };
  return kRows;
}
