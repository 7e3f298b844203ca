// The page of a printer of driver-feature-printer: the same, without the file.

import assert from "node:assert/strict";
import { spawn } from "node:child_process";
import fs from "node:fs";
import path from "node:path";
import test from "node:test";
import { officeRoutines, openPage, openSections, row, settled, shownOutputs, temporaryFolder } from "./preview.js";
import { build, root } from "./tools.js";

/** Starts a printer for labels; returns its address. */
async function startPrinter(t) {
  const folder = temporaryFolder(t);
  fs.mkdirSync(path.join(folder, "printed"));
  const description = path.join(root, "descriptions/label_printer.xml");
  const words = ["--listen", "127.0.0.1:0", "--spool", path.join(folder, "spool"), "--device", `file:${folder}/printed/`];
  const child = spawn(path.join(build, "bin/driver-feature-printer"), [...words, "--callbacks", officeRoutines, `labels=${description}`]);
  t.after(() => new Promise((resolve) => {
    child.on("exit", resolve);
    child.kill("SIGTERM");
  }));
  return new Promise((resolve, reject) => {
    let told = "";
    child.stderr.on("data", (data) => {
      told += data;
      const place = /listening at (127\.0\.0\.1:\d+)/.exec(told);
      if (place && /: ready$/m.test(told)) resolve(`http://${place[1]}`);
    });
    child.on("exit", (status) => reject(new Error(`the printer ended with status ${status}: ${told}`)));
  });
}

test("Printer_Visits_HaveValuesOfTheirOwnAndNoFile", async (t) => {
  const server = await startPrinter(t);
  const page = await openPage(t, `${server}/page/labels/?Copies=2`);
  await openSections(page);
  await page.waitForFunction(() => document.querySelector("[data-feature=Copies] .number-input").value === "2");
  const other = await openPage(t, `${server}/page/labels/`);
  await row(page, "Copies").locator("[data-step='1']").click();
  await settled(page);
  assert.match((await shownOutputs(page)).ps, /\/NumCopies 3 /);
  assert.match((await shownOutputs(other)).ps, /\/NumCopies 1 /);
  await row(page, "Speed").locator(".number-input").focus();
  for (const id of ["place", "command-line"]) assert.equal(await page.locator(`#${id}`).isVisible(), false, id);
  await page.locator("#files-button").click();
  for (const id of ["save-settings", "save-preset"]) assert.equal(await page.locator(`#${id}`).isVisible(), false, id);
  assert.equal(await page.locator("#open-settings").isVisible(), true);
  assert.deepEqual(page.problems, []);
});
