// The page keeps up: with replies out of their order, with a process that has ended, with a
// file that is saved while somebody works on the page, and with another page.

import assert from "node:assert/strict";
import fs from "node:fs";
import path from "node:path";
import test from "node:test";
import { chooseInList, copyOf, fileWith, officeRoutines, openPage, openSections, preview, row, settled, temporaryFolder } from "./preview.js";
import { assets } from "./tools.js";

async function openOffice(t, options, address = "") {
  const description = copyOf(t, "office_laser.xml");
  const served = await preview(t, description, [officeRoutines]);
  const page = await openPage(t, served.url + address, options);
  return { page, served, description };
}

test("Language_OfAnEarlierReplyThatComesLater_IsNotShown", async (t) => {
  const { page } = await openOffice(t);
  await page.route("**/model?language=de", async (route) => {
    const reply = await route.fetch();
    await new Promise((resolve) => setTimeout(resolve, 300));
    await route.fulfill({ response: reply });
  });
  await page.locator("#language").selectOption("de");
  const late = page.waitForResponse("**/model?language=de");
  await page.locator("#language").selectOption("en");
  await late;
  await page.waitForTimeout(50);
  assert.equal(await row(page, "Copies").locator(".row-label").textContent(), "Copies");
  assert.equal(await page.locator("#language").inputValue(), "en");
});

test("Language_ThatTheDescriptionHasNot_IsNotSaidToBeIt", async (t) => {
  const { page } = await openOffice(t, { locale: "fr-FR" });
  assert.equal(await page.locator("#sections").getAttribute("lang"), "en");
  assert.equal(await page.locator("#language").inputValue(), "en");
});

test("Changes_AskedForWhileAReplyIsUnderWay_AreAskedForAgain", async (t) => {
  const { page } = await openOffice(t);
  const seen = await page.evaluate(async () => {
    const { Changes } = await import("./changes.js");
    const { Store } = await import("./store.js");
    const serials = [3, 5];
    window.fetch = async () => new Response(JSON.stringify({ whole: true, values: {}, serial: serials.shift() }));
    const store = new Store();
    const changes = new Changes(store, () => {});
    const first = changes.askState();
    await Promise.all([first, changes.receive({ serial: 5, values: {} })]);
    const afterBoth = store.serial;
    window.fetch = async () => new Response(JSON.stringify({ whole: true, values: {}, serial: 4 }));
    await changes.askState();
    const afterOlder = store.serial;
    window.fetch = async () => new Response(JSON.stringify({ error: "no such thing" }));
    return { afterBoth, afterOlder, fault: await changes.request({ do: "nothing" }) };
  });
  assert.deepEqual(seen, { afterBoth: 5, afterOlder: 5, fault: { ok: false, problem: "no such thing" } });
});

test("Store_ChangeOfAPartOfAnOutput_IsPutIntoIt", async () => {
  const text = fs.readFileSync(path.join(assets, "store.js"), "utf8");
  const { spliced } = await import(`data:text/javascript,${encodeURIComponent(text)}`);
  const before = { text: "aaabbbccc", spans: [[0, 3, "A"], [3, 3, "B"], [6, 3, "C"]] };
  const whole = { text: "x", spans: [] };
  assert.equal(spliced(before, whole), whole);
  assert.deepEqual(spliced(before, { at: 5, gone: 0, text: "xx", head: 1, tail: 1, spans: [[3, 5, "B"]] }), {
    text: "aaabbxxbccc",
    spans: [[0, 3, "A"], [3, 5, "B"], [8, 3, "C"]],
  });
  assert.deepEqual(spliced(before, { at: 0, gone: 9, text: "", head: 0, tail: 0, spans: [] }), { text: "", spans: [] });
});

// Ends the process that has the description loaded, as a crash does.
function killProcess(served) {
  const children = fs.readFileSync(`/proc/${served.pid}/task/${served.pid}/children`, "utf8").trim().split(" ");
  process.kill(Number(children[0]), "SIGKILL");
}

test("Process_EndsByItself_PageHasTheStateOfTheNextOne", async (t) => {
  const { page, served } = await openOffice(t);
  await row(page, "Copies").locator("[data-step='1']").click();
  await settled(page);
  const before = await page.evaluate(() => Number(document.getElementById("main").dataset.serial));
  killProcess(served);
  await page.waitForSelector(".banner-error");
  await page.waitForFunction((serial) => Number(document.getElementById("main").dataset.serial) > serial, before);
  assert.equal(await row(page, "Copies").locator(".number-input").inputValue(), "2");
  const told = await page.evaluate(async () => (await (await fetch("state")).json()).serial);
  assert.equal(await page.evaluate(() => Number(document.getElementById("main").dataset.serial)), told);
});

test("Process_EndsAndCannotStartAgain_PageShowsTheFault", async (t) => {
  const description = copyOf(t, "office_laser.xml");
  const routines = path.join(path.dirname(description), "liboffice_routines.so");
  fs.copyFileSync(officeRoutines, routines);
  const served = await preview(t, description, [routines]);
  const page = await openPage(t, served.url);
  fs.renameSync(routines, `${routines}.old`);
  killProcess(served);
  await page.waitForSelector("#faults:not([hidden]) .finding");
  assert.match(await page.locator(".finding-text").first().textContent(), /liboffice_routines\.so/);
  assert.equal(await page.locator("#settings").isVisible(), false);
});

test("Address_OfADescriptionThatIsMendedLater_IsOpenedThen", async (t) => {
  const description = copyOf(t, "office_laser.xml");
  const text = fs.readFileSync(description, "utf8");
  fs.writeFileSync(description, "<FeatureDescription>");
  const served = await preview(t, description, [officeRoutines]);
  const page = await openPage(t, `${served.url}#Copies=7`);
  await page.waitForSelector("#faults:not([hidden])");
  fs.writeFileSync(description, text);
  await page.waitForFunction(() => document.querySelector("[data-feature=Copies] .number-input")?.value === "7");
});

test("File_Saved_FocusSearchAndPlaceStay", async (t) => {
  const { page, description } = await openOffice(t);
  await openSections(page);
  const text = fs.readFileSync(description, "utf8");
  const input = row(page, "Gamma").locator(".number-input");
  await input.focus();
  const place = () => page.evaluate(() => document.querySelector("[data-feature=Gamma]").getBoundingClientRect().top);
  await page.evaluate(() => {
    document.querySelector("[data-feature=Gamma]").old = true;
  });
  const before = await place();
  fs.writeFileSync(description, text.replace("/NumCopies ", "/NumCopiesNow "));
  await page.waitForFunction(() => document.querySelector("[data-feature=Gamma]")?.old === undefined);
  await page.waitForFunction(() => document.querySelector("#panel-ps .code").textContent.includes("NumCopiesNow"));
  assert.equal(await page.evaluate(() => document.activeElement.closest("[data-feature]")?.dataset.feature), "Gamma");
  const after = await place();
  assert.ok(Math.abs(after - before) < 3, `the row was at ${before}, and is at ${after}`);

  await page.locator("#search").fill("transpar");
  await page.waitForSelector("#results .row");
  fs.writeFileSync(description, text);
  await page.waitForFunction(() => !document.querySelector("#panel-ps .code").textContent.includes("NumCopiesNow /"));
  assert.equal(await page.locator("#search").inputValue(), "transpar");
  assert.equal(await page.locator("#results .row").count(), 1);
});

test("Cell_BeingTyped_StaysWhenAnotherPageChangesTheList", async (t) => {
  const { page, served } = await openOffice(t);
  const other = await openPage(t, served.url);
  for (const one of [page, other]) await openSections(one);
  await page.locator("[data-record=add]").click();
  await settled(page);
  const cell = page.locator(".records tbody tr").first().locator("input").nth(1);
  await cell.focus();
  await page.keyboard.press("End");
  await page.keyboard.type("23");
  const typed = await cell.inputValue();
  await other.locator("[data-record=add]").click();
  await page.waitForFunction(() => document.querySelectorAll(".records tbody tr").length === 2);
  assert.equal(await page.evaluate(() => document.activeElement.value), typed);
  await page.keyboard.type("4");
  assert.equal(await page.evaluate(() => document.activeElement.value), `${typed}4`);
});

test("Changed_Filter_ShowsWhatIsChangedMeanwhile", async (t) => {
  const { page, served } = await openOffice(t);
  const other = await openPage(t, served.url);
  await openSections(other);
  await page.locator("#only-changed").check();
  assert.equal(await page.locator(".results-head").textContent(), "All settings have their default values.");
  await row(other, "Copies").locator("[data-step='1']").click();
  await page.waitForSelector("#results [data-feature=Copies]");
});

test("Preset_ThatHasAsked_GetsTheFocusBack", async (t) => {
  const { page } = await openOffice(t);
  await chooseInList(page, "MediaType", "Envelope");
  await settled(page);
  for (const answer of ["Keep as it is", "Change them"]) {
    await page.locator("[data-preset=draft]").click();
    await page.locator("#dialog-top .notice-offer").getByText(answer).click();
    await settled(page);
    assert.equal(await page.evaluate(() => document.activeElement.dataset.preset), "draft", answer);
  }
});

test("Picture_LookedAtBeforeItIsThere_ComesWithItsFacts", async (t) => {
  const folder = temporaryFolder(t);
  fs.writeFileSync(path.join(folder, "gs"), '#!/bin/sh\nsleep 0.5\nPATH=${PATH#*:} exec gs "$@"\n', { mode: 0o755 });
  const served = await preview(t, copyOf(t, "office_laser.xml"), [officeRoutines], { PATH: `${folder}:${process.env.PATH}` });
  const page = await openPage(t, served.url);
  await page.locator("#tab-page").click();
  assert.equal(await page.locator(".facts dt").count(), 0, "not there yet");
  await page.waitForSelector(".facts dt");
  await page.waitForSelector(".sheet:not([hidden])");
  assert.deepEqual(page.problems, []);
});

test("Copy_WithoutTheBrowsersClipboard_IsMadeOfASelection", async (t) => {
  const { page } = await openOffice(t);
  await page.evaluate(() => Object.defineProperty(navigator, "clipboard", { value: undefined }));
  await page.locator("#copy-command").click();
  assert.equal(await page.locator("#copy-command").textContent(), "Copied");
  const other = await openPage(t, page.url());
  await other.locator("#search").focus();
  await other.keyboard.press("Control+v");
  assert.match(await other.locator("#search").inputValue(), /^driver-feature emit --to ps .*office_laser\.xml/);
  await page.evaluate(() => {
    document.execCommand = () => false;
  });
  await page.locator("#copy-link").click();
  await page.waitForSelector(".banner-error");
  assert.match(await page.locator(".banner-error").textContent(), /The address of these settings could not be copied/);
});

test("Group_ClickedInTheOutput_ShowsItsPlace", async (t) => {
  const description = fileWith(
    t,
    "group.xml",
    `<FeatureDescription><BaseFeatureInfo DefaultCallbackHandler="DriverFeatureHostUpdate" LoadVORNCallbackHandler="DriverFeatureHostLoad"/>
<FeatureStaticGroup Name="Both" PSCommand="begin %s end&#10;">
<Feature FeatureType="IntEntry" Name="Copies" IntMinValue="1" IntMaxValue="9" DefaultValue="1" PSCommand="%d copies"/>
</FeatureStaticGroup></FeatureDescription>`,
  );
  const served = await preview(t, description);
  const page = await openPage(t, served.url);
  await page.locator("#panel-ps .piece[data-owner=Both]").first().click();
  await page.waitForSelector("#place:not([hidden]) .is-place");
  assert.match(await page.locator("#place .is-place .line-text").textContent(), /Name="Both"/);
});
