// What a choice would change besides, in words and as nodes. The words of rules and
// refusals are the server's; texts of features and choices are the description's.

import { element } from "./dom.js";

/**
 * The other changes of a plan: those that are not the choice itself.
 * @param {object} plan
 * @param {string} name the feature that was chosen for
 */
export function otherChanges(plan, name) {
  return (plan.changes ?? []).filter((change) => change.feature !== name);
}

/**
 * One line: "Also changes Duplex: On → Off".
 * @returns {string} empty when there is nothing to say
 */
export function inOneLine(plan, name, store) {
  if (!plan) return "";
  const others = otherChanges(plan, name);
  if (plan.kind === "mended" && others.length > 0) {
    const parts = others.map(
      (change) =>
        `${store.textOf(change.feature)}: ${store.valueText(change.feature, change.from)} → ` +
        store.valueText(change.feature, change.to),
    );
    return `Also changes ${parts.join(", ")}`;
  }
  if (plan.kind === "impossible" || plan.kind === "not found") return (plan.reasons ?? []).join(" ");
  return "";
}

/** A list of the other changes, as "from" and "to" beside the feature's text. */
export function changeList(plan, name, store) {
  const list = element("ul", { class: "notice-changes" });
  for (const change of otherChanges(plan, name)) {
    list.append(
      element(
        "li",
        {},
        element("b", { text: store.textOf(change.feature) }),
        ": ",
        element("s", { text: store.valueText(change.feature, change.from) }),
        " → ",
        element("span", { text: store.valueText(change.feature, change.to) }),
      ),
    );
  }
  return list;
}

/** The reasons as a list, or nothing. */
export function reasonList(reasons) {
  if (!reasons || reasons.length === 0) return [];
  return [
    element("ul", { class: "notice-reasons" }, ...reasons.map((text) => element("li", { text }))),
  ];
}
