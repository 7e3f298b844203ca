// What is shown when the description cannot be loaded: the findings of the check, each
// with its lines in the file.

import { byId, element, setText } from "./dom.js";

/**
 * One finding with its place and its remedy.
 * @param {object} finding as the check reports it
 * @param {import("./source_view.js").Sources} sources
 */
export function findingItem(finding, sources) {
  const { severity, code, text, remedy, file, line, column } = finding;
  const head = element(
    "p",
    { class: "finding-head" },
    element("span", { class: "finding-severity", text: severity }),
    element("span", { class: "finding-place", text: file ? `${file}:${line}:${column ?? 1}` : "" }),
    element("code", { class: "finding-code", text: code ?? "" }),
  );
  const item = element("li", { class: `finding finding-${severity}` }, head, element("p", { class: "finding-text", text }));
  if (remedy) item.append(element("p", { class: "finding-remedy", text: remedy }));
  if (file && line) {
    const box = element("section", { class: "excerpt", tabindex: "0", "aria-label": `Lines of ${file}, around ${line}` });
    item.append(box);
    sources.excerpt({ file, line, column }, 2, 2).then((lines) => {
      if (lines.children.length > 0) box.replaceChildren(lines);
      else box.remove();
    });
  }
  return item;
}

/**
 * Shows the findings in place of the dialog and the outputs.
 * @param {object} model that is not loaded
 * @param {import("./source_view.js").Sources} sources
 */
export function showFaults(model, sources) {
  const isVisitor = model.mode === "printer";
  const heading = isVisitor ? "The settings of this printer cannot be shown now" : `${model.file || "The description"} cannot be loaded`;
  setText(byId("faults-heading"), heading);
  byId("faults-hint").hidden = isVisitor;
  setText(byId("faults-ended"), model.ended || "");
  byId("faults-ended").hidden = !model.ended;
  byId("findings").replaceChildren(...(model.findings ?? []).map((finding) => findingItem(finding, sources)));
  byId("faults").hidden = false;
  byId("main").classList.add("has-faults");
}

/** Back to the dialog. */
export function hideFaults() {
  byId("faults").hidden = true;
  byId("main").classList.remove("has-faults");
}
