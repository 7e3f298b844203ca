// What controls do besides setting a value: what they say, keep out, hide and remember.

import assert from "node:assert/strict";
import test from "node:test";
import { chooseInList, copyOf, fileWith, officeRoutines, openPage, openSections, preview, row, settled } from "./preview.js";

async function openOffice(t) {
  const served = await preview(t, copyOf(t, "office_laser.xml"), [officeRoutines]);
  const page = await openPage(t, served.url);
  await openSections(page);
  return page;
}

const liveText = (page) => page.locator("#live").textContent();

test("Details_OfChanges_AreCounted", async (t) => {
  const page = await openOffice(t);
  assert.equal(await page.locator(".section-badge:visible").count(), 0);
  await page.locator("[data-preset=handout]").click();
  await settled(page);
  assert.deepEqual(await page.locator(".section-badge:visible").allTextContents(), ["2 changed", "1 changed"]);
  assert.equal(await page.locator("#changed-count").textContent(), "3");
  assert.equal(await page.locator("#tab-log .tab-count").textContent(), "1");
  assert.equal(await page.locator("#tab-ps .tab-count").textContent(), "+3 −3");
  // A change that PJL has nothing of.
  await row(page, "Gamma").locator("[data-step='1']").click();
  await settled(page);
  assert.equal(await page.locator("#tab-ps .tab-count").textContent(), "+1 −1");
  assert.equal(await page.locator("#tab-pjl .tab-count").textContent(), "");
});

test("Details_OfNumbersAndSecrets_KeepTheirLimits", async (t) => {
  const page = await openOffice(t);
  const copies = row(page, "Copies").locator(".number-input");
  await copies.fill("999");
  await copies.press("Enter");
  await settled(page);
  await copies.press("ArrowUp");
  await settled(page);
  assert.equal(await copies.inputValue(), "999");
  assert.equal(await row(page, "Copies").locator(".notice").count(), 0);

  await chooseInList(page, "HoldJob", "Private");
  await settled(page);
  const pin = row(page, "HoldPin");
  assert.equal(await pin.locator(".text-count").isVisible(), false, "the length of a secret");
  await pin.locator(".text-input").fill("47");
  assert.equal(await pin.locator(".text-count").textContent(), "2/4");
  const kinds = [];
  for (let press = 0; press < 2; ++press) {
    await pin.locator(".eye").click();
    kinds.push([await pin.locator(".text-input").getAttribute("type"), await pin.locator(".eye").textContent()]);
  }
  assert.deepEqual(kinds, [["text", "Hide"], ["password", "Show"]]);
});

test("Details_OfTheColours_AreRemembered", async (t) => {
  const page = await openOffice(t);
  await page.locator("#theme").selectOption("dark");
  await page.reload();
  await page.waitForSelector("html[data-ready]");
  assert.equal(await page.evaluate(() => document.documentElement.dataset.theme), "dark");
  assert.equal(await page.locator("#theme").inputValue(), "dark");
});

test("TakenOut_Choice_CannotBeMade", async (t) => {
  const page = await openOffice(t);
  await row(page, "InstalledDuplexUnit").locator(".radio-box[value=NotInstalled]").click();
  await settled(page);
  const button = row(page, "Duplex").locator(".choice-button");
  await button.click();
  const option = page.locator(".option[data-value=LongEdge]");
  assert.equal(await option.getAttribute("aria-disabled"), "true");
  assert.ok((await option.locator(".option-reason").textContent()).length > 10);
  await option.click({ force: true });
  await page.keyboard.press("Enter");
  await settled(page);
  assert.equal(await page.locator("#choices").isVisible(), true, "there is something else to choose");
  assert.equal(await row(page, "Duplex").locator(".choice-value").textContent(), "One side");
  assert.equal(await row(page, "Duplex").locator(".notice").count(), 0);
  await page.keyboard.press("Escape");
  assert.equal(await button.evaluate((node) => node === document.activeElement), true);
});

test("Banner_Closed_LeavesTheFocusOnThePage", async (t) => {
  const served = await preview(t, copyOf(t, "office_laser.xml"), [officeRoutines]);
  const page = await openPage(t, `${served.url}#Copies=4000`);
  await page.locator(".banner .icon-button").click();
  assert.equal(await page.locator(".banner").count(), 0);
  assert.equal(await page.evaluate(() => document.activeElement.id), "settings");
});

test("Switch_ThatChangesOthersOrIsFixed_SaysSo", async (t) => {
  const list = (name, more = "") => `<Feature FeatureType="MultiSelect" Name="${name}" DefaultValue="Off"${more}><Option Name="Off"/><Option Name="On"/></Feature>`;
  const description = fileWith(
    t,
    "rules.xml",
    `<DriverConfiguration><FeatureDescription><BaseFeatureInfo DefaultCallbackHandler="DriverFeatureHostUpdate" LoadVORNCallbackHandler="DriverFeatureHostLoad"/>
${list("One")}${list("Other")}${list("Fixed")}${list("Unit")}${list("Unseen", ' Visibility="false"')}
</FeatureDescription><FeatureRules><Hardware Feature="Unit"/>
<Never Id="a" Text="Not both."><When Feature="One" Is="On"/><When Feature="Other" Is="On"/></Never>
<Never Id="b" Text="Needs the unit."><When Feature="Unit" Is="Off"/><When Feature="Fixed" Is="On"/></Never>
</FeatureRules></DriverConfiguration>`,
  );
  const served = await preview(t, description);
  const page = await openPage(t, served.url);
  assert.match(await row(page, "Fixed").locator(".row-note").textContent(), /Needs the unit \(rules\.xml:5\)$/);
  await row(page, "One").locator(".switch-box").click();
  await settled(page);
  await row(page, "Other").locator(".switch-box").focus();
  await page.waitForFunction(() => document.getElementById("live").textContent.startsWith("Also changes One: On → Off"));
  assert.equal(await page.locator(".tip").textContent(), await liveText(page));
  await row(page, "Other").locator(".switch-box").click();
  const offer = row(page, "Other").locator(".notice-offer");
  await offer.waitFor();
  // Somebody else makes the change: the question is answered.
  const other = await openPage(t, served.url);
  await row(other, "One").locator(".switch-box").click();
  await settled(other);
  await row(other, "Other").locator(".switch-box").click();
  await offer.waitFor({ state: "detached" });

  await page.locator("#search").fill("unseen");
  await page.waitForSelector("#results .results-head");
  assert.equal(await page.locator("#results .row").count(), 0, "hidden features are not found");
});
