// Addresses, files, copies, languages, and what is marked where.

import assert from "node:assert/strict";
import fs from "node:fs";
import path from "node:path";
import test from "node:test";
import { largeDescription } from "./large.js";
import { chooseInList, copyOf, fileWith, officeRoutines, openPage, openSections, preview, row, settled, shownCommand, shownOutputs } from "./preview.js";

async function openOffice(t, options) {
  const description = copyOf(t, "office_laser.xml");
  const served = await preview(t, description, [officeRoutines]);
  const page = await openPage(t, served.url, options);
  await openSections(page);
  return { page, served, description };
}

async function choose(page, name, value) {
  await chooseInList(page, name, value);
  await settled(page);
}

test("Address_OfAState_OpensItAgain", async (t) => {
  const { page, served } = await openOffice(t);
  await choose(page, "PageSize", "A3");
  await row(page, "Copies").locator("[data-step='1']").click();
  await page.locator("[data-record=add]").click();
  await settled(page);
  await page.waitForFunction(() => location.hash.includes("PageSize=A3") && location.hash.includes("PageExceptions"));
  const address = page.url();
  const outputs = await shownOutputs(page);
  await page.locator("[data-preset='']").click();
  await settled(page);
  assert.notDeepEqual(await shownOutputs(page), outputs);
  const other = await openPage(t, address);
  assert.deepEqual(await shownOutputs(other), outputs);
  assert.equal(await other.locator(".records tbody tr").count(), 1);
  await page.locator("#copy-link").click();
  assert.equal(await page.evaluate(() => navigator.clipboard.readText()), address);
  assert.ok(address.startsWith(served.url));
});

test("Address_WithAFault_IsRefusedInWords", async (t) => {
  const { served } = await openOffice(t);
  const page = await openPage(t, `${served.url}#Copies=4000`);
  assert.match(await page.locator(".banner-error").textContent(), /cannot be opened: .*4000 is out of range/);
});

test("Copy_CommandAndOutput_AreTheText", async (t) => {
  const { page } = await openOffice(t);
  await choose(page, "PageSize", "A3");
  await page.locator("#copy-command").click();
  assert.equal(await page.evaluate(() => navigator.clipboard.readText()), await shownCommand(page));
  await page.locator("#tab-pjl").click();
  await page.locator("#copy-output").click();
  const copied = await page.evaluate(() => navigator.clipboard.readText());
  const { pjl } = await shownOutputs(page);
  assert.equal(copied.replaceAll("\r", ""), pjl.replaceAll("\r", ""));
});

test("Difference_SinceTheLastChange_IsMarkedPieceByPiece", async (t) => {
  const { page } = await openOffice(t);
  assert.equal(await page.locator(".mark").count(), 0);
  await choose(page, "MediaType", "Recycled");
  const marks = () => page.locator("#panel-ps .mark").evaluateAll((all) => all.map((one) => [one.localName, one.textContent]));
  assert.deepEqual(await marks(), [["del", "Plain"], ["ins", "Recycled"]]);
  assert.equal(await page.locator("#tab-pjl .tab-count").textContent(), "+1 −1");
  await choose(page, "PageSize", "A5");
  assert.ok(!(await marks()).some(([, text]) => text.includes("Recycled")), "only the last change is marked");
});

test("Piece_Clicked_SelectsItsFeatureAndTheReverse", async (t) => {
  const { page } = await openOffice(t);
  await page.locator("#panel-ps .piece[data-owner=Duplex]").first().click();
  await page.waitForFunction(() => document.activeElement.closest("[data-feature]")?.dataset.feature === "Duplex");
  await page.waitForSelector("#sections [data-feature=Duplex].is-selected");
  await page.waitForSelector("#place:not([hidden]) .is-place");
  assert.match(await page.locator("#place .is-place .line-text").textContent(), /Name="Duplex"/);
  await row(page, "Gamma").locator(".number-input").focus();
  await page.waitForSelector("#panel-ps .is-selected[data-owner=Gamma]");
  await page.waitForFunction(() => document.querySelector("#place .is-place")?.textContent.includes('Name="Gamma"'));
});

test("Place_InALineOfManyLetters_ShowsThePartAroundIt", async (t) => {
  const text = largeDescription(5, 1).replaceAll("\n", " ");
  const served = await preview(t, fileWith(t, "one_line.xml", text));
  const page = await openPage(t, served.url);
  await openSections(page);
  const shown = () => page.evaluate(() => document.querySelector("#place .is-place .line-text")?.textContent ?? "");
  const look = async (name, control) => {
    await row(page, name).locator(control).first().focus();
    await page.waitForFunction((wanted) => document.querySelector("#place-heading").textContent.startsWith(wanted), name);
    await page.waitForFunction((wanted) => document.querySelector("#place .is-place")?.textContent.includes(`Name="${wanted}"`), name);
    return shown();
  };
  const first = await look("Long0", ".choice-button");
  assert.equal(first, `${text.slice(0, 400)}…`);
  const middle = await look("Feature00001", ".number-input");
  assert.equal(middle.length, 402);
  assert.ok(middle.startsWith("…") && middle.endsWith("…") && text.includes(middle.slice(1, -1)), middle);
  assert.equal(middle.indexOf('<Feature FeatureType="IntEntry" Name="Feature00001"'), 81);
  const last = await look("Feature00003", ".radio-box");
  assert.ok(last.startsWith("…") && text.includes(last.slice(1).replace(/…$/, "")), last);
  assert.deepEqual(page.problems, []);
});

test("TakenOut_Choices_StayWithTheReason", async (t) => {
  const { page } = await openOffice(t);
  await row(page, "InstalledFinisher").locator(".radio-box[value=NotInstalled], .choice-button").first().click();
  const option = page.locator(".option[data-value=NotInstalled]");
  if (await option.count()) await option.click();
  await settled(page);
  const staple = row(page, "Staple");
  const reasons = await staple.evaluate((node) => Object.values(node.row.view().off).concat(node.row.view().disabled ?? []));
  assert.ok(reasons.length > 0, "nothing is taken out without the finisher");
  for (const reason of reasons) assert.ok(reason.length > 3, "a reason has words");
});

test("Preset_ThatChangesOthers_AsksFirst", async (t) => {
  const { page } = await openOffice(t);
  await choose(page, "MediaType", "Envelope");
  await page.locator("[data-preset=draft]").click();
  const offer = page.locator("#dialog-top .notice-offer");
  await offer.waitFor();
  assert.match(await offer.textContent(), /Type of paper: Envelope → Plain paper/);
  const value = (name) => row(page, name).evaluate((node) => node.row.view().value);
  assert.equal(await value("Duplex"), "OneSided", "nothing has changed yet");
  await offer.getByText("Change them").click();
  await settled(page);
  assert.deepEqual([await value("Duplex"), await value("MediaType")], ["LongEdge", "Plain"]);
  assert.equal(await offer.count(), 0);
});

test("Language_Chosen_ChangesTheTexts", async (t) => {
  const { page } = await openOffice(t);
  assert.equal(await row(page, "Copies").locator(".row-label").textContent(), "Copies");
  await page.locator("#language").selectOption("de");
  await page.waitForFunction(() => document.querySelector('[data-feature="Copies"] .row-label').textContent === "Exemplare");
  assert.equal(await page.locator("#sections").getAttribute("lang"), "de");
});

test("Files_SavedAndOpened_GiveTheSameState", async (t) => {
  const { page, description } = await openOffice(t);
  await choose(page, "PageSize", "A3");
  const outputs = await shownOutputs(page);
  await page.locator("#files-button").click();
  await page.locator("#save-preset").click();
  await page.locator("#save-name").fill("large");
  await page.locator("#save-confirm").click();
  await page.waitForSelector("[data-preset=large]");
  assert.match(fs.readFileSync(path.join(path.dirname(description), "office_laser.presets/large.settings"), "utf8"), /^PageSize=A3$/m);
  await page.locator("[data-preset='']").click();
  await settled(page);
  await page.locator("[data-preset=large]").click();
  await settled(page);
  assert.deepEqual(await shownOutputs(page), outputs);
  await page.locator("[data-preset='']").click();
  await settled(page);
  await page.locator("#settings-file").setInputFiles(fileWith(t, "own.conf", "PageSize=A3\n"));
  await page.waitForFunction(() => document.querySelector("[data-feature=PageSize]").row.view().value === "A3");
  await page.locator("#settings-file").setInputFiles(fileWith(t, "bad.conf", "PageSize=A9\n"));
  await page.waitForSelector(".banner-error");
  assert.match(await page.locator(".banner-error").textContent(), /bad\.conf: .*A9/);
});

test("Page_Rendered_ShowsThePictureAndTheDevice", async (t) => {
  const { page } = await openOffice(t);
  await choose(page, "Duplex", "LongEdge");
  await page.locator("#tab-page").click();
  await page.waitForSelector(".sheet:not([hidden])");
  const size = await page.locator(".sheet").evaluate((image) => [image.naturalWidth, image.naturalHeight]);
  assert.ok(size[1] > size[0], "A4 upright");
  await page.waitForSelector(".d-turn");
  assert.match(await page.locator(".d-drawing").getAttribute("aria-label"), /both sides, turned on the long edge/);
});

test("Secret_Typed_IsMaskedAndIsInNoAddress", async (t) => {
  const { page } = await openOffice(t);
  await choose(page, "HoldJob", "Private");
  const input = row(page, "HoldPin").locator(".text-input");
  assert.equal(await input.getAttribute("type"), "password");
  await input.fill("4711");
  await page.keyboard.press("Enter");
  await settled(page);
  await page.waitForTimeout(400);
  assert.ok(!page.url().includes("4711"));
  assert.ok(!(await shownCommand(page)).includes("4711"));
  assert.equal(await input.inputValue(), "");
});
