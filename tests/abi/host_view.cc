// Everything that a host sees of the library's types, gathered in one shared
// library for the tool that describes binary interfaces. It never runs. The
// plug-in itself does not serve: its exported functions mention hardly any of
// these types, because hosts receive the set as an untyped pointer.

#include "frame/exports.h"
#include "model/core_feature_group.h"
#include "model/core_feature_set.h"
#include "model/core_option.h"

#include "AttributeMap.h"
#include "UnicodeString.h"
#include "VORNWriter.h"
#include "XMLParser.h"

// What the library gives to hosts.
DRIVER_FEATURE_EXPORT IntermediateCoreOption* option;
DRIVER_FEATURE_EXPORT IntermediateCoreFeature* feature;
DRIVER_FEATURE_EXPORT IntermediateStaticFeatureGroup* staticGroup;
DRIVER_FEATURE_EXPORT IntermediateDynamicFeatureGroup* dynamicGroup;
DRIVER_FEATURE_EXPORT CoreFeatureSet* featureSet;

// What it takes from their libraries.
DRIVER_FEATURE_EXPORT XMLParser* parser;
DRIVER_FEATURE_EXPORT AttributeMap* attributes;
DRIVER_FEATURE_EXPORT UnicodeString* text;
DRIVER_FEATURE_EXPORT VORNWriter* writer;
