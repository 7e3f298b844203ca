// What axe-core and html-validate find: nothing.

import assert from "node:assert/strict";
import fs from "node:fs";
import path from "node:path";
import test from "node:test";
import { chooseInList, copyOf, officeRoutines, openPage, openSections, preview, row, settled } from "./preview.js";
import { HtmlValidate, assets, axeSource } from "./tools.js";

async function expectNoViolations(page, what) {
  await page.waitForTimeout(50);
  // The page's policy lets no other script in, so that it comes in through the tools.
  await page.evaluate(axeSource);
  const found = await page.evaluate(async () => {
    const result = await window.axe.run(document, { resultTypes: ["violations"] });
    return result.violations.map((one) => `${one.id}: ${one.nodes.map((node) => `${node.target} ${node.any[0]?.message ?? ""}`).slice(0, 4).join(" | ")}`);
  });
  assert.deepEqual(found, [], what);
}

async function refused(page) {
  const input = row(page, "Copies").locator(".number-input");
  await input.fill("4000");
  await input.press("Enter");
  await page.waitForSelector(".notice-refused");
}

for (const colorScheme of ["light", "dark"]) {
  test(`Axe_${colorScheme}_FindsNothing`, async (t) => {
    const served = await preview(t, copyOf(t, "office_laser.xml"), [officeRoutines]);
    const page = await openPage(t, served.url, { colorScheme });
    await openSections(page);
    await expectNoViolations(page, "at first");
    await page.locator("[data-preset=handout]").click();
    await settled(page);
    await expectNoViolations(page, "with a difference");
    await chooseInList(page, "MediaType", "CardStock");
    await page.waitForSelector(".notice-offer");
    await refused(page);
    await expectNoViolations(page, "refused");
    await page.locator("[data-record=add]").click();
    await settled(page);
    await row(page, "MediaType").locator(".choice-button").click();
    await expectNoViolations(page, "a list is open");
    await page.keyboard.press("Escape");
    for (const tab of ["pjl", "ticket", "log", "page"]) {
      await page.locator(`#tab-${tab}`).click();
      await expectNoViolations(page, `tab ${tab}`);
    }
    await page.locator("#search").fill("paper");
    await page.waitForSelector("#results:not([hidden])");
    await expectNoViolations(page, "results");
    await page.locator("#files-button").click();
    await expectNoViolations(page, "menu");
    await page.locator("#save-preset").click();
    await expectNoViolations(page, "dialog for a name");
  });
}

test("Axe_Narrow_FindsNothing", async (t) => {
  const served = await preview(t, copyOf(t, "office_laser.xml"), [officeRoutines]);
  const page = await openPage(t, served.url, { viewport: { width: 320, height: 640 } });
  await openSections(page);
  await refused(page);
  await expectNoViolations(page, "settings");
  const wide = await page.evaluate(() => document.documentElement.scrollWidth);
  assert.equal(wide, 320, "the page is wider than the window");
  await page.locator("#view-output").click();
  await expectNoViolations(page, "output");
});

test("Axe_Faults_FindsNothing", async (t) => {
  const description = copyOf(t, "office_laser.xml");
  fs.writeFileSync(description, fs.readFileSync(description, "utf8").replace('Name="Duplex" CLOKey="sides"', 'CLOKey="sides"'));
  const served = await preview(t, description, [officeRoutines]);
  for (const colorScheme of ["light", "dark"]) {
    const page = await openPage(t, served.url, { colorScheme });
    await page.waitForSelector(".finding .line");
    await expectNoViolations(page, `faults, ${colorScheme}`);
  }
});

// What a browser writes of its nodes has a style of its own, and styles that scripts set.
// No native element shows choices that are taken out with their reasons.
const kOfNodes = {
  "attribute-boolean-style": "off",
  "attribute-empty-style": "off",
  "no-inline-style": "off",
  "prefer-native-element": ["error", { exclude: ["listbox"] }],
};

async function expectValid(text, what, rules = {}) {
  const report = await new HtmlValidate({ root: true, extends: ["html-validate:recommended"], rules }).validateString(text);
  const lines = report.results.flatMap((one) => one.messages.map((message) => `${message.line}: ${message.ruleId}: ${message.message} (${message.selector})`));
  assert.deepEqual(lines, [], what);
}

test("Html_FileAndPage_AreValid", async (t) => {
  await expectValid(fs.readFileSync(path.join(assets, "index.html"), "utf8"), "the file");
  const served = await preview(t, copyOf(t, "office_laser.xml"), [officeRoutines]);
  const page = await openPage(t, served.url);
  await openSections(page);
  await page.locator("[data-preset=handout]").click();
  await settled(page);
  await page.locator("[data-record=add]").click();
  await settled(page);
  await row(page, "MediaType").locator(".choice-button").click();
  for (const tab of ["page", "log"]) await page.evaluate((name) => document.getElementById(`tab-${name}`).click(), tab);
  await expectValid(`<!DOCTYPE html>\n${await page.evaluate(() => document.documentElement.outerHTML)}`, "the page", kOfNodes);
});
