// After each of many random changes the three outputs are what driver-feature emit
// writes for the command that the page shows; two pages of one printer agree.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import fs from "node:fs";
import path from "node:path";
import test from "node:test";
import { copyOf, officeRoutines, openPage, openSections, preview, settled, shownCommand, shownOutputs, temporaryFolder } from "./preview.js";
import { build, isLong, randomNumbers } from "./tools.js";

const kClicks = isLong ? 500 : 40;

// Runs in the page: one random change by a click, a key or a text, as a user makes it.
// The numbers are drawn outside, so that a run can be repeated.
function changeSomething(numbers) {
  let at = 0;
  const draw = (below) => numbers[at++ % numbers.length] % below;
  const pick = (all) => all[draw(all.length)];
  const type = (input, text) => {
    input.focus();
    input.value = text;
    input.dispatchEvent(new Event("input", { bubbles: true }));
    input.dispatchEvent(new Event("change", { bubbles: true }));
  };
  const offer = document.querySelector(".notice-offer .notice-buttons");
  if (offer) {
    pick([offer.firstChild, offer.firstChild, offer.lastChild]).click();
    return "offer";
  }
  const kind = draw(20);
  if (kind === 0) {
    pick([...document.querySelectorAll("[data-preset]")]).click();
    return "preset";
  }
  if (kind <= 3) {
    const buttons = [...document.querySelectorAll("[data-record]")].filter((one) => one.checkVisibility());
    const cells = [...document.querySelectorAll(".records input.in-cell")];
    if (cells.length > 0 && draw(2) === 0) type(pick(cells), String(1 + draw(99)));
    else if (buttons.length > 0) pick(buttons).click();
    return "record";
  }
  const rows = [...document.querySelectorAll("#sections .row")].filter((one) => !one.hidden && !one.classList.contains("is-disabled"));
  const row = pick(rows);
  const { feature } = row.row;
  if (feature.secret) return "secret";
  const radios = [...row.querySelectorAll(".radio-box:not(:disabled)")];
  const box = row.querySelector(".switch-box");
  const button = row.querySelector(".choice-button");
  const number = row.querySelector(".number-input");
  const text = row.querySelector(".text-input");
  if (radios.length > 0) pick(radios).click();
  else if (box) box.click();
  else if (button) {
    button.click();
    pick([...document.querySelectorAll("#choices .option:not([aria-disabled=true])")]).click();
  } else if (number) {
    if (draw(3) > 0) pick([...row.querySelectorAll("[data-step]")]).click();
    else type(number, String(Math.min(feature.max, Math.max(feature.min, draw(400)))));
  } else if (text) {
    const letters = feature.allowed || "abcXYZ019";
    type(text, Array.from({ length: draw(Math.min(12, feature.maxLength ?? 12)) }, () => pick([...letters])).join(""));
  }
  return row.dataset.feature;
}

/** What emit writes for the page's own command, all three outputs in one run. */
function emitted(command, folder, description) {
  const files = ["ps", "pjl", "ticket"].map((name) => ({ name, file: path.join(folder, name) }));
  const targets = files.map((one) => `--to ${one.name}='${one.file}'`).join(" ");
  assert.match(command, /^driver-feature emit --to ps /);
  const line = command.replace("--to ps ", `${targets} `);
  const env = { ...process.env, PATH: `${path.join(build, "bin")}:${process.env.PATH}` };
  execFileSync("sh", ["-c", line], { cwd: path.dirname(description), env, stdio: "pipe" });
  return Object.fromEntries(files.map((one) => [one.name, fs.readFileSync(one.file, "utf8")]));
}

for (const name of ["office_laser.xml", "label_printer.xml"]) {
  test(`Clicks_${name}_OutputsAreThoseOfEmit`, async (t) => {
    const description = copyOf(t, name);
    const folder = temporaryFolder(t);
    const served = await preview(t, description, [officeRoutines]);
    const page = await openPage(t, served.url);
    await openSections(page);
    const draw = randomNumbers(20261122);
    const commands = new Set();
    for (let click = 0; click < kClicks; ++click) {
      const numbers = Array.from({ length: 24 }, () => draw(1 << 30));
      const what = await page.evaluate(changeSomething, numbers);
      await settled(page);
      const command = await shownCommand(page);
      commands.add(command);
      assert.deepEqual(await shownOutputs(page), emitted(command, folder, description), `click ${click}: ${what}: ${command}`);
    }
    assert.ok(commands.size > kClicks / 3, `only ${commands.size} different states`);
    assert.deepEqual(page.problems, []);
    t.diagnostic(`${kClicks} clicks, ${commands.size} different states`);
  });
}

test("Pages_TwoOfOnePrinter_Agree", async (t) => {
  const description = copyOf(t, "office_laser.xml");
  const served = await preview(t, description, [officeRoutines]);
  const pages = [await openPage(t, served.url), await openPage(t, served.url)];
  for (const page of pages) await openSections(page);
  const draw = randomNumbers(7);
  for (let click = 0; click < (isLong ? 100 : 16); ++click) {
    const [mover, other] = click % 2 === 0 ? pages : [...pages].reverse();
    await mover.evaluate(changeSomething, Array.from({ length: 24 }, () => draw(1 << 30)));
    await settled(mover);
    const serial = await mover.evaluate(() => document.getElementById("main").dataset.serial);
    await other.waitForFunction((wanted) => document.getElementById("main").dataset.serial === wanted, serial);
    assert.deepEqual(await shownOutputs(other), await shownOutputs(mover), `click ${click}`);
    assert.equal(await shownCommand(other), await shownCommand(mover), `click ${click}`);
    const values = () => [...document.querySelectorAll("#sections .row")].map((one) => [one.dataset.feature, one.row.view().value, one.hidden]);
    assert.deepEqual(await other.evaluate(values), await mover.evaluate(values), `click ${click}`);
  }
  for (const page of pages) assert.deepEqual(page.problems, []);
});
