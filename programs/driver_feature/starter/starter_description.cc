#include "programs/driver_feature/starter/starter_texts.h"

namespace driver_feature::cli {

const std::string_view kStarterDescription = R"xml(<?xml version="1.0" encoding="UTF-8"?>
<!-- What the printer can do. Features are written in the order of their names,
     groups after all features. ByteEscapes: U+F71B is the escape character. -->
<FeatureDescription ByteEscapes="yes">
  <BaseFeatureInfo DefaultCallbackHandler="DriverFeatureHostUpdate"
                   LoadVORNCallbackHandler="DriverFeatureHostLoad"/>

  <!-- The first line of the PJL header. -->
  <Feature FeatureType="MultiSelect" Name="AaJobBegin" Visibility="false"
           DefaultValue="Begin" PJLCommand="%s">
    <Option Name="Begin" PJLCommand="&#xF71B;%-12345X@PJL&#13;&#10;"/>
  </Feature>

  <!-- A number with limits. -->
  <Feature FeatureType="IntEntry" Name="Copies" CLOKey="copies"
           IntMinValue="1" IntMaxValue="99" DefaultValue="1"
           PSCommand="&lt;&lt; /NumCopies %d >> setpagedevice&#10;"
           PJLCommand="@PJL SET COPIES=%d&#13;&#10;"
           TESKJTAttributeName="copies" TESKAttributeSyntax="integer"/>

  <!-- Lists: the command of the option replaces %s in that of the feature. -->
  <Feature FeatureType="MultiSelect" Name="Duplex" CLOKey="sides" DefaultValue="Off"
           PSCommand="&lt;&lt; %s >> setpagedevice&#10;"
           PJLCommand="@PJL SET DUPLEX=%s&#13;&#10;"
           TESKJTAttributeName="sides" TESKAttributeSyntax="keyword">
    <Option Name="Off" PSCommand="/Duplex false" PJLCommand="OFF" TESKCommand="one-sided"/>
    <Option Name="LongEdge" PSCommand="/Duplex true /Tumble false" PJLCommand="ON"
            TESKCommand="two-sided-long-edge"/>
  </Feature>
  <Feature FeatureType="MultiSelect" Name="PageSize" CLOKey="media" DefaultValue="A4"
           PSCommand="&lt;&lt; /PageSize [%s] >> setpagedevice&#10;"
           PJLCommand="@PJL SET PAPER=%s&#13;&#10;"
           TESKOAAttributeName="media" TESKAttributeSyntax="keyword">
    <Option Name="A4" PSCommand="595 842" PJLCommand="A4" TESKCommand="iso_a4_210x297mm"/>
    <Option Name="Letter" PSCommand="612 792" PJLCommand="LETTER"
            TESKCommand="na_letter_8.5x11in"/>
  </Feature>

  <!-- Texts. The first is allowed characters that end no PJL string; what the
       second one writes, the routine WriteStamp in routines.cc says. -->
  <Feature FeatureType="TextEntry" Name="JobName" CLOKey="job-name" DefaultValue="job"
           MaxTextLength="40"
           TextValidationCharSet="ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789 "
           PJLCommand="@PJL SET JOBNAME=&quot;%s&quot;&#13;&#10;"/>
  <Feature FeatureType="TextEntry" Name="Stamp" MaxTextLength="20"
           TextValidationCharSet="ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789 ()"
           AddPSCallbackRoutine="WriteStamp"/>

  <!-- A group: the last line of the PJL header. -->
  <FeatureStaticGroup Name="JobEnd" PJLCommand="%s">
    <Feature FeatureType="MultiSelect" Name="Language" Visibility="false"
             DefaultValue="PostScript" PJLCommand="@PJL ENTER LANGUAGE=%s&#13;&#10;">
      <Option Name="PostScript" PJLCommand="POSTSCRIPT"/>
    </Feature>
  </FeatureStaticGroup>
</FeatureDescription>
)xml";

}  // namespace driver_feature::cli
