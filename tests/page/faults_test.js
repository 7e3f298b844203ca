// Faulty descriptions and crashing routines: the page says what is wrong, and lives on.

import assert from "node:assert/strict";
import fs from "node:fs";
import path from "node:path";
import test from "node:test";
import { copyOf, fileWith, officeRoutines, openPage, preview, row, settled, shownCommand, shownOutputs } from "./preview.js";
import { build } from "./tools.js";

const testRoutines = path.join(build, "lib/libhost_test_routines.so");

test("Fatal_SavedAndMended_ShowsFindingsThenFollowsWithTheValues", async (t) => {
  const description = copyOf(t, "office_laser.xml");
  const text = fs.readFileSync(description, "utf8");
  const served = await preview(t, description, [officeRoutines]);
  const page = await openPage(t, served.url);
  await row(page, "Copies").locator("[data-step='1']").click();
  await settled(page);

  // Without a name the library ends the process.
  fs.writeFileSync(description, text.replace('Name="Duplex" CLOKey="sides"', 'CLOKey="sides"'));
  await page.waitForSelector("#faults:not([hidden])");
  await page.waitForSelector(".finding-error .line.is-place");
  assert.match(await page.locator(".finding-error .finding-place").first().textContent(), /^office_laser\.xml:\d+:\d+$/);
  assert.equal(await page.locator("#sections").isVisible(), false);

  fs.writeFileSync(description, text);
  await page.waitForSelector("#faults[hidden]", { state: "attached" });
  await page.waitForFunction(() => document.querySelector('[data-feature="Copies"] .number-input')?.value === "2");
  assert.match(await shownCommand(page), / Copies=2|-o Copies=2/);
  await row(page, "Copies").locator("[data-step='1']").click();
  await page.waitForFunction(() => document.querySelector('[data-feature="Copies"] .number-input').value === "3");
  assert.deepEqual(page.problems, []);
});

test("Fatal_FromTheStart_PageOpensAndFollowsWhenMended", async (t) => {
  const description = fileWith(t, "broken.xml", "<FeatureDescription>\n  <Feature Name='A' </FeatureDescription>\n");
  const served = await preview(t, description);
  const page = await openPage(t, served.url);
  await page.waitForSelector("#faults:not([hidden]) .finding");
  fs.writeFileSync(
    description,
    `<FeatureDescription><BaseFeatureInfo DefaultCallbackHandler="DriverFeatureHostUpdate" LoadVORNCallbackHandler="DriverFeatureHostLoad"/>
<Feature FeatureType="IntEntry" Name="Copies" IntMinValue="1" IntMaxValue="9" DefaultValue="1" PSCommand="%d copies&#10;"/></FeatureDescription>`,
  );
  await page.waitForSelector('[data-feature="Copies"]');
  await page.waitForFunction(() => document.querySelector("#panel-ps .code").textContent === "1 copies\n");
});

test("Crash_RoutineOfAFeature_IsToldAndThePageGoesOn", async (t) => {
  const description = fileWith(
    t,
    "crash.xml",
    `<FeatureDescription><BaseFeatureInfo DefaultCallbackHandler="DriverFeatureHostUpdate" LoadVORNCallbackHandler="DriverFeatureHostLoad"/>
<Feature FeatureType="IntEntry" Name="Copies" IntMinValue="1" IntMaxValue="9" DefaultValue="1" PSCommand="%d copies&#10;"/>
<Feature FeatureType="MultiSelect" Name="Duplex" DefaultValue="Off" AddCallbackRoutine="crash"><Option Name="Off"/><Option Name="Long"/></Feature>
</FeatureDescription>`,
  );
  const served = await preview(t, description, [testRoutines]);
  const page = await openPage(t, served.url);
  await row(page, "Copies").locator("[data-step='1']").click();
  await settled(page);
  await row(page, "Duplex").locator(".radio-box[value=Long]").click();
  const notice = row(page, "Duplex").locator(".notice-refused");
  await notice.waitFor();
  assert.match(await notice.textContent(), /the routine "crash" of the description crashed/);
  await settled(page);
  // The value before the crash is kept, the change that crashed is not made.
  assert.equal((await shownOutputs(page)).ps, "2 copies\n");
  assert.equal(await row(page, "Duplex").locator(".radio-box[value=Off]").isChecked(), true);
  await row(page, "Copies").locator("[data-step='1']").click();
  await page.waitForFunction(() => document.querySelector('[data-feature="Copies"] .number-input').value === "3");
});

test("Server_Ends_PageSaysSo", async (t) => {
  const served = await preview(t, copyOf(t, "label_printer.xml"), [officeRoutines]);
  const page = await openPage(t, served.url);
  await served.stop();
  await page.waitForSelector(".banner-warning");
  assert.match(await page.locator("#connection").textContent(), /^(Reconnecting…|Ended)$/);
});
