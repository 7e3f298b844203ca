// Everything is inside the window: nothing is cut off at its sides, and only panes scroll.

import assert from "node:assert/strict";
import fs from "node:fs";
import test from "node:test";
import { copyOf, officeRoutines, openPage, openSections, preview, row, settled } from "./preview.js";

// Runs in the page: what reaches beyond the window to the right, and whether the page as a
// whole can be scrolled. What is in a box that scrolls sideways is not cut off.
function outside() {
  const found = [];
  const scrolls = (node) => node && (["auto", "scroll"].includes(getComputedStyle(node).overflowX) || scrolls(node.parentElement));
  for (const node of document.querySelectorAll("body *")) {
    if (!node.checkVisibility() || node.closest(".visually-hidden, .skip")) continue;
    const { right, width } = node.getBoundingClientRect();
    if (width > 0 && right > window.innerWidth + 1 && !scrolls(node.parentElement)) found.push(`${node.localName}.${node.className}`);
  }
  const { scrollHeight, clientHeight } = document.documentElement;
  if (scrollHeight > clientHeight) found.push(`the page is ${scrollHeight - clientHeight} higher than the window`);
  const { bottom } = document.getElementById("main").getBoundingClientRect();
  if (Math.abs(bottom - window.innerHeight) > 1) found.push(`the sides end at ${bottom}`);
  return found;
}

for (const [name, viewport] of Object.entries({ wide: { width: 1360, height: 850 }, narrow: { width: 390, height: 780 }, least: { width: 320, height: 560 } })) {
  test(`Layout_${name}_NothingIsCutOff`, async (t) => {
    const description = copyOf(t, "office_laser.xml");
    const served = await preview(t, description, [officeRoutines]);
    const page = await openPage(t, served.url, { viewport });
    await openSections(page);
    await page.locator("[data-record=add]").click();
    await settled(page);
    await row(page, "Gamma").locator(".number-input").focus();
    assert.deepEqual(await page.evaluate(outside), [], "settings");
    if (viewport.width < 940) await page.locator("#view-output").click();
    for (const tab of ["ps", "pjl", "ticket", "log", "page"]) {
      await page.locator(`#tab-${tab}`).click();
      assert.deepEqual(await page.evaluate(outside), [], tab);
    }
    // Little to show, on both sides.
    await page.locator("#search").evaluate((field) => {
      field.value = "no such word";
      field.dispatchEvent(new Event("input", { bubbles: true }));
    });
    await page.waitForFunction(() => document.querySelector("#results .results-head"));
    assert.deepEqual(await page.evaluate(outside), [], "nothing found");
    await page.waitForSelector("#place:not([hidden]) .is-place", { state: "attached" });
    assert.deepEqual(await page.evaluate(outside), [], "place");
    fs.writeFileSync(description, fs.readFileSync(description, "utf8").replace(/Name="Duplex" CLOKey="sides"\s+/, 'CLOKey="sides" '));
    await page.waitForSelector(".finding .line");
    assert.deepEqual(await page.evaluate(outside), [], "faults");
  });
}
