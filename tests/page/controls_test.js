// A control for every visible feature, of the kind and with the choices that
// driver-feature show lists.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import fs from "node:fs";
import path from "node:path";
import test from "node:test";
import { fileWith, officeRoutines, openPage, openSections, preview, temporaryFolder } from "./preview.js";
import { build, isLong, root } from "./tools.js";

const program = path.join(build, "bin/driver-feature");

/** What the description has, from the program and not from the page's own server. */
function listed(description, routines) {
  const words = ["show", "--json", ...routines.flatMap((one) => ["--callbacks", one]), description];
  const shown = JSON.parse(execFileSync(program, words, { maxBuffer: 1 << 28 }).toString());
  const columns = new Set();
  for (const group of shown.groups) if (group.kind === "dynamic") for (const name of group.members) columns.add(name);
  return { features: shown.features.filter((one) => one.visible), columns };
}

// Runs in the page: what is in each row.
function rowsOfPage() {
  const rows = {};
  for (const node of document.querySelectorAll("#sections [data-feature]")) {
    const find = (selector) => node.querySelector(selector);
    const body = find(".row-body");
    rows[node.dataset.feature] = {
      hidden: node.hidden,
      kind: find(".switch-box") ? "switch"
        : find(".radio-box") ? "radios"
        : find(".choice-button") ? "list"
        : find(".number-input") ? "number"
        : find(".text-input") ? "text"
        : find(".shown") ? "shown" : "none",
      radios: [...node.querySelectorAll(".radio-box")].map((one) => one.value),
      masked: find(".text-input")?.type === "password",
      label: find(".row-label").textContent,
      min: find(".number-input")?.getAttribute("aria-valuemin") ?? null,
      max: find(".number-input")?.getAttribute("aria-valuemax") ?? null,
      height: body.getBoundingClientRect().height,
    };
  }
  return rows;
}

const kKinds = {
  MultiSelect: ["switch", "radios", "list"],
  IntEntry: ["number"],
  FloatEntry: ["number"],
  TextEntry: ["text"],
};

async function choicesOf(page, name) {
  const button = page.locator(`#sections [data-feature="${name}"] .choice-button`);
  await button.focus();
  await page.keyboard.press("ArrowDown");
  const values = await page.locator("#choices .option").evaluateAll((all) => all.map((one) => one.dataset.value));
  await page.keyboard.press("Escape");
  return values;
}

/** Compares the page with what is listed; returns how many features it has seen. */
async function expectControls(test, description, routines, everyList) {
  const { features, columns } = listed(description, routines);
  const served = await preview(test, description, routines);
  const page = await openPage(test, served.url);
  await openSections(page);
  const rows = await page.evaluate(rowsOfPage);
  for (const feature of features) {
    const { name } = feature;
    if (columns.has(name)) continue;
    const found = rows[name];
    assert.ok(found, `${description}: ${name} has no row`);
    assert.equal(found.hidden, false, `${name} is hidden`);
    assert.ok(found.height > 0, `${name} takes no room`);
    const kinds = kKinds[feature.type] ?? ["shown"];
    assert.ok(kinds.includes(found.kind), `${name}, a ${feature.type}, is shown as ${found.kind}`);
    if (found.kind === "radios") assert.deepEqual(found.radios, feature.choices.map((one) => one.name), name);
    if (found.kind === "list" && everyList) assert.deepEqual(await choicesOf(page, name), feature.choices.map((one) => one.name), name);
    if (feature.secret) assert.equal(found.masked, true, `${name} is not masked`);
  }
  for (const name of columns) {
    const heads = await page.locator(".records th").allTextContents();
    assert.ok(heads.length > 0, `no table has the column ${name}`);
  }
  assert.deepEqual(page.problems, []);
  await page.context().close();
  await served.stop();
  return features.length;
}

test("Controls_ShippedPrinters_EveryVisibleFeatureHasItsOwn", async (t) => {
  for (const name of ["office_laser.xml", "label_printer.xml"]) {
    const count = await expectControls(t, path.join(root, "descriptions", name), [officeRoutines], true);
    assert.ok(count > 15);
  }
});

// The whole descriptions in documents.
function examplesOfDocuments() {
  const examples = [];
  for (const name of fs.readdirSync(path.join(root, "docs")).concat("../README.md")) {
    if (!name.endsWith(".md")) continue;
    const text = fs.readFileSync(path.join(root, "docs", name), "utf8");
    for (const [, block] of text.matchAll(/```xml\n([\s\S]*?)```/g)) {
      const whole = /^<(DriverConfiguration|FeatureDescription)[ >]/.test(block) && /<\/(DriverConfiguration|FeatureDescription)>\s*$/.test(block);
      if (whole && !/Callback(Routine)?="(?!DriverFeatureHost)/.test(block)) examples.push({ name: path.basename(name, ".md"), block });
    }
  }
  return examples;
}

test("Controls_ExamplesOfDocuments_EveryVisibleFeatureHasItsOwn", async (t) => {
  const examples = examplesOfDocuments();
  assert.ok(examples.length >= 3, `only ${examples.length} examples found`);
  for (const example of examples) await expectControls(t, fileWith(t, `${example.name}.xml`, example.block), [], true);
  t.diagnostic(`${examples.length} examples`);
});

// The PPDs of the sample, as far as they are there.
function samplePpds(count) {
  const folder = [process.env.PAGE_TEST_PPDS, path.join(root, "build/corpus/ppds")].find((one) => one && fs.existsSync(one));
  if (!folder) return [];
  const lines = fs.readFileSync(path.join(root, "equivalence/sample.txt"), "utf8").split("\n");
  return lines.filter((line) => line.endsWith(".ppd")).slice(0, count).map((line) => path.join(folder, line)).filter((file) => fs.existsSync(file));
}

test("Controls_ImportedPpds_EveryVisibleFeatureHasItsOwn", async (t) => {
  const own = ["pages.ppd"].map((name) => path.join(root, "tests/ppd/files", name));
  const ppds = [...own, ...samplePpds(isLong ? 200 : 8)];
  let features = 0;
  for (const [index, ppd] of ppds.entries()) {
    const description = path.join(temporaryFolder(t), "imported.xml");
    execFileSync(program, ["import", ppd, "--output", description], { stdio: "pipe" });
    features += await expectControls(t, description, [], index < 10);
  }
  t.diagnostic(`${ppds.length} imports with ${features} features`);
});
