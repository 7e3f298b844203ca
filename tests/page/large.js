// Large descriptions, made for measurements.

/**
 * A description with many features, of which some are lists of 2,000 choices.
 * @param {number} features in all
 * @param {number} longLists among them
 */
export function largeDescription(features, longLists) {
  const parts = [
    "<DriverConfiguration><FeatureDescription>",
    '<BaseFeatureInfo DefaultCallbackHandler="DriverFeatureHostUpdate" LoadVORNCallbackHandler="DriverFeatureHostLoad"/>',
  ];
  for (let at = 0; at < longLists; ++at) parts.push(list(`Long${at}`, 2000));
  for (let at = 0; at < features - longLists; ++at) {
    const name = `Feature${String(at).padStart(5, "0")}`;
    if (at % 3 === 0) parts.push(list(name, 3));
    else if (at % 3 === 1) parts.push(number(name));
    else parts.push(list(name, 6));
  }
  parts.push("</FeatureDescription><FeatureRules>");
  for (let at = 0; at + 3 < features - longLists; at += 30) parts.push(rule(at));
  parts.push("</FeatureRules></DriverConfiguration>");
  return parts.join("\n");
}

function list(name, choices) {
  const options = [];
  for (let at = 0; at < choices; ++at) {
    options.push(`<Option Name="Choice${at}" PSCommand="(choice ${at})" PJLCommand="C${at}" TESKCommand="choice-${at}"/>`);
  }
  return `<Feature FeatureType="MultiSelect" Name="${name}" DefaultValue="Choice0"
    PSCommand="&lt;&lt; /${name} %s >> setpagedevice&#10;" PJLCommand="@PJL SET ${name.toUpperCase()}=%s&#13;&#10;"
    TESKJTAttributeName="${name.toLowerCase()}" TESKAttributeSyntax="keyword">${options.join("")}</Feature>`;
}

function number(name) {
  return `<Feature FeatureType="IntEntry" Name="${name}" IntMinValue="0" IntMaxValue="999" DefaultValue="1"
    PSCommand="&lt;&lt; /${name} %d >> setpagedevice&#10;" PJLCommand="@PJL SET ${name.toUpperCase()}=%d&#13;&#10;"
    TESKJTAttributeName="${name.toLowerCase()}" TESKAttributeSyntax="integer"/>`;
}

function rule(at) {
  const name = (place) => `Feature${String(place).padStart(5, "0")}`;
  const first = at - (at % 3);
  return `<Never Id="rule${at}"><When Feature="${name(first)}" Is="Choice2"/><When Feature="${name(first + 2)}" Is="Choice5"/></Never>`;
}
