// The whole page by keyboard: everything that can be used is reached with the Tab key,
// shows where the focus is, and works.

import assert from "node:assert/strict";
import test from "node:test";
import { copyOf, officeRoutines, openPage, openSections, preview, row, settled, shownCommand } from "./preview.js";

async function openOffice(t, options) {
  const served = await preview(t, copyOf(t, "office_laser.xml"), [officeRoutines]);
  const page = await openPage(t, served.url, options);
  await openSections(page);
  return page;
}

// Runs in the page: what can be used with a mouse, as one line each. Radio buttons of a
// group are one stop; the steps of a number have its arrow keys.
function usable() {
  const lines = new Set();
  const name = (node) => node.getAttribute("aria-label") || node.id || node.name || node.dataset.preset || node.textContent.trim();
  for (const node of document.querySelectorAll("button, input, select, summary, a[href], [tabindex='0']")) {
    if (!node.checkVisibility() || node.tabIndex < 0 || node.disabled || node.matches("a.skip")) continue;
    if (node.type === "radio" && !node.checked) continue;
    lines.add(`${node.localName} ${node.closest("[data-feature]")?.dataset.feature ?? ""} ${node.type === "radio" ? "" : name(node)}`);
  }
  return [...lines];
}

// The same of what has the focus, and whether one sees it.
function focused() {
  const node = document.activeElement;
  const name = (one) => one.getAttribute("aria-label") || one.id || one.name || one.dataset.preset || one.textContent.trim();
  const seen = (one) => {
    const style = getComputedStyle(one);
    return style.outlineStyle !== "none" && Number.parseFloat(style.outlineWidth) >= 2;
  };
  const shown = seen(node) || (node.nextElementSibling && seen(node.nextElementSibling));
  return {
    line: `${node.localName} ${node.closest("[data-feature]")?.dataset.feature ?? ""} ${node.type === "radio" ? "" : name(node)}`,
    shown: Boolean(shown),
    end: node === document.body,
  };
}

test("Keyboard_Tab_ReachesEverythingAndShowsTheFocus", async (t) => {
  const page = await openOffice(t);
  const wanted = new Set(await page.evaluate(usable));
  assert.ok(wanted.size > 50, `only ${wanted.size} things to use`);
  const unseen = [];
  const most = wanted.size * 2;
  for (let press = 0; press < most; ++press) {
    await page.keyboard.press("Tab");
    const here = await page.evaluate(focused);
    if (!here.shown && !here.end) unseen.push(here.line);
    wanted.delete(here.line);
  }
  assert.deepEqual([...wanted], [], "not reached");
  assert.deepEqual(unseen, [], "without a mark of the focus");
});

async function valueOf(page, name) {
  return row(page, name).evaluate((node) => node.row.view().value);
}

test("Keyboard_EachKindOfControl_ChangesItsFeature", async (t) => {
  const page = await openOffice(t);
  const press = (key) => page.keyboard.press(key);

  await row(page, "EconoMode").locator(".switch-box").focus();
  await press("Space");
  await settled(page);
  assert.equal(await valueOf(page, "EconoMode"), "On");

  await row(page, "Orientation").locator(".radio-box:checked").focus();
  await press("ArrowRight");
  await settled(page);
  assert.equal(await valueOf(page, "Orientation"), "Landscape");

  await row(page, "PageSize").locator(".choice-button").focus();
  await press("ArrowDown");
  await press("ArrowDown");
  await press("Enter");
  await settled(page);
  assert.equal(await valueOf(page, "PageSize"), "A5");
  assert.equal(await page.evaluate(() => document.activeElement.className), "choice-button", "the focus comes back");

  await press("Enter");
  await page.keyboard.type("led");
  await press("Enter");
  await settled(page);
  assert.equal(await valueOf(page, "PageSize"), "Ledger", "letters lead to a choice");

  await row(page, "Copies").locator(".number-input").focus();
  await press("ArrowUp");
  await settled(page);
  await press("PageUp");
  await settled(page);
  assert.equal(await valueOf(page, "Copies"), "12");

  await row(page, "JobName").locator(".text-input").fill("Report");
  await press("Enter");
  await settled(page);
  assert.equal(await valueOf(page, "JobName"), "Report");
  assert.match(await shownCommand(page), /JobName=Report/);
});

test("Keyboard_ChoiceThatChangesOthers_IsOfferedAndMade", async (t) => {
  const page = await openOffice(t);
  await row(page, "MediaType").locator(".choice-button").focus();
  await page.keyboard.press("Enter");
  await page.keyboard.type("card");
  await page.keyboard.press("Enter");
  await settled(page);
  assert.equal(await valueOf(page, "MediaType"), "CardStock", "nothing else changes");

  await row(page, "Duplex").locator(".choice-button").focus();
  await page.keyboard.press("Enter");
  await page.keyboard.press("ArrowDown");
  const foot = page.locator(".option-foot");
  await foot.waitFor();
  assert.equal(await foot.textContent(), "Also changes Type of paper: Card stock → Plain paper");
  await page.keyboard.press("Enter");
  await page.waitForSelector(".notice-offer");
  assert.equal(await valueOf(page, "Duplex"), "OneSided", "nothing has changed yet");
  assert.equal(await page.locator(".notice-changes li").textContent(), "Type of paper: Card stock → Plain paper");
  await page.keyboard.press("Tab");
  await page.keyboard.press("Enter");
  await settled(page);
  assert.equal(await valueOf(page, "Duplex"), "LongEdge");
  assert.equal(await valueOf(page, "MediaType"), "Plain");
});

test("Keyboard_RefusedValue_IsToldInTheWordsOfEmitAndCanBeMended", async (t) => {
  const page = await openOffice(t);
  const input = row(page, "Copies").locator(".number-input");
  await input.focus();
  await input.fill("4000");
  await page.keyboard.press("Enter");
  const title = page.locator(".notice-refused .notice-title");
  await title.waitFor();
  assert.match(await title.textContent(), /^4000 is out of range; give a whole number, from 1 to 999 \(office_laser\.xml:53\)$/);
  assert.equal(await input.inputValue(), "4000", "what was typed stays");
  await page.keyboard.press("Escape");
  assert.equal(await input.inputValue(), "1");
  assert.equal(await page.locator(".notice").count(), 0);
});

test("Keyboard_TabsAndPieces_LeadToTheFeature", async (t) => {
  const page = await openOffice(t);
  await page.locator("#tab-ps").focus();
  await page.keyboard.press("ArrowRight");
  assert.equal(await page.locator("#tab-pjl").getAttribute("aria-selected"), "true");
  await page.keyboard.press("Home");
  await page.locator("#panel-ps .code").focus();
  await page.keyboard.press("ArrowDown");
  const owner = await page.locator("#panel-ps .is-here").getAttribute("data-owner");
  await page.keyboard.press("Enter");
  await page.waitForFunction((name) => document.activeElement.closest("[data-feature]")?.dataset.feature === name, owner);
  assert.ok((await page.locator("#panel-ps .is-selected").count()) > 0);
  await page.waitForSelector("#place:not([hidden]) .is-place");
});

test("Keyboard_Records_AreAddedChangedSortedAndRemoved", async (t) => {
  const page = await openOffice(t);
  const values = () => page.locator(".records tbody tr").evaluateAll((rows) => rows.map((one) => [...one.querySelectorAll("[data-value]")].map((cell) => cell.dataset.value)));
  const type = async (cell, text) => {
    await cell.focus();
    await cell.fill(text);
    await page.keyboard.press("Enter");
    await settled(page);
  };
  const add = page.locator("[data-record=add]");
  for (const first of ["7", "3"]) {
    await add.focus();
    await page.keyboard.press("Enter");
    await settled(page);
    // The new entry has the focus.
    const line = page.locator(".records tbody tr:has(:focus)");
    await type(line.locator("input").nth(1), "9");
    await type(line.locator("input").nth(0), first);
  }
  assert.deepEqual((await values()).map((one) => one.slice(0, 2)), [["3", "9"], ["7", "9"]], "added in their order");
  await type(page.locator(".records tbody tr").first().locator("input").first(), "8");
  await page.locator("[data-record=sort]").focus();
  await page.keyboard.press("Enter");
  await settled(page);
  assert.deepEqual((await values()).map((one) => one[0]), ["7", "8"]);
  await page.locator(".records tbody tr").first().locator(".choice-button").first().focus();
  await page.keyboard.press("Enter");
  await page.keyboard.press("ArrowDown");
  await page.keyboard.press("Enter");
  await settled(page);
  assert.equal((await values())[0][2], "Recycled");
  await page.locator("[data-record=remove]").first().focus();
  await page.keyboard.press("Enter");
  await settled(page);
  assert.deepEqual((await values()).map((one) => one[0]), ["8"]);
});

test("Keyboard_Search_FindsByTextNameAndChoice", async (t) => {
  const page = await openOffice(t);
  await page.locator("#tab-ps").focus();
  await page.keyboard.press("/");
  await page.keyboard.type("transpar");
  await page.waitForSelector("#results .row");
  assert.deepEqual(await page.locator("#results .row").evaluateAll((all) => all.map((one) => one.dataset.feature)), ["MediaType"]);
  await page.keyboard.press("Escape");
  await page.waitForSelector("#sections:not([hidden])");
});
