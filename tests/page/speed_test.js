// How long a person waits: from a click to the changed output, from a saved file to the
// changed page, and with ten thousand features.

import assert from "node:assert/strict";
import fs from "node:fs";
import os from "node:os";
import test from "node:test";
import { largeDescription } from "./large.js";
import { copyOf, fileWith, officeRoutines, openPage, preview, settled } from "./preview.js";
import { isLong, p95, randomNumbers } from "./tools.js";

const kClicks = isLong ? 200 : 25;
// Other work on the machine can only add to a time: the best of some rounds counts.
const kRounds = 3;

// With much other work even the best round says nothing about the page: the figures are
// printed, and not judged.
function machineIsBusy() {
  return os.loadavg()[0] > 1.5 * os.cpus().length;
}

/** A clock of the work of the page's own thread, painting included, in milliseconds. */
async function pageClock(page) {
  const session = await page.context().newCDPSession(page);
  await session.send("Performance.enable", { timeDomain: "threadTicks" });
  return async () => {
    const { metrics } = await session.send("Performance.getMetrics");
    return metrics.find((one) => one.name === "TaskDuration").value * 1000;
  };
}

// Runs in the page: presses a node, and takes the time until the output that is shown
// differs and is laid out; then until it is on the screen.
function pressAndWatch(node) {
  const pane = document.querySelector(".panel:not([hidden]) .code");
  return new Promise((resolve) => {
    const start = performance.now();
    const watcher = new MutationObserver(() => {
      pane.getBoundingClientRect();
      const changed = performance.now() - start;
      watcher.disconnect();
      requestAnimationFrame(() => {
        const channel = new MessageChannel();
        channel.port1.onmessage = () => resolve({ changed, shown: performance.now() - start });
        channel.port2.postMessage(null);
      });
    });
    watcher.observe(pane, { childList: true, subtree: true });
    node.click();
  });
}

// Clicks until a round stays within the limit, and fails when none does.
async function expectSoon(t, what, limit, { page, served }, clickSome) {
  const clock = await pageClock(page);
  const press = async (node) => {
    const before = await clock();
    const time = await node.evaluate(pressAndWatch);
    return { ...time, worked: (await clock()) - before };
  };
  const busy = machineIsBusy();
  let best = Infinity;
  for (let round = 0; round < (busy ? 1 : kRounds) && best > limit; ++round) {
    const before = served.processorTime();
    const times = await clickSome(press);
    const own = times.reduce((sum, one) => sum + one.worked, 0) / times.length;
    const servers = (served.processorTime() - before) / times.length;
    const changed = times.map((one) => one.changed).sort((a, b) => a - b);
    const shown = p95(times.map((one) => one.shown));
    const half = changed[changed.length >> 1];
    t.diagnostic(
      `${what}: ${times.length} clicks; to the changed output p50 ${half.toFixed(1)} ms, p95 ${p95(changed).toFixed(1)} ms; to the screen p95 ${shown.toFixed(1)} ms`,
    );
    t.diagnostic(`${what}: processor time of a click: page ${own.toFixed(1)} ms, server ${servers.toFixed(1)} ms`);
    best = Math.min(best, p95(changed));
  }
  if (busy) t.diagnostic(`${what}: not judged, the machine is busy (load ${os.loadavg()[0].toFixed(0)})`);
  else assert.ok(best <= limit, `${what}: ${best} ms`);
}

async function openSection(page, at) {
  await page.evaluate(async (index) => {
    const parts = [...document.querySelectorAll("#sections > details")];
    parts[0].open = true;
    await new Promise((resolve) => setTimeout(resolve, 50));
    const inner = [...parts[0].querySelectorAll("details")];
    inner[index].open = true;
    await new Promise((resolve) => setTimeout(resolve, 50));
  }, at);
}

async function clickSwitches(page, press, draw, clicks) {
  const times = [];
  for (let click = 0; click < clicks; ++click) {
    const boxes = page.locator("#sections .radio-box:not(:checked):not(:disabled)");
    const box = await boxes.nth(draw(Math.min(60, await boxes.count()))).elementHandle();
    times.push(await press(box));
    await settled(page);
  }
  return times;
}

async function chooseFromLongLists(page, press, draw, clicks) {
  const times = [];
  for (let click = 0; click < clicks; ++click) {
    await page.evaluate((name) => document.querySelector(`#sections [data-feature="${name}"] .choice-button`).click(), `Long${click % 5}`);
    const option = await page.locator("#choices .option").nth(1 + draw(1999)).elementHandle();
    // Nobody chooses before the list is on the screen.
    await page.evaluate(() => new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve, 150))));
    times.push(await press(option));
    await settled(page);
  }
  return times;
}

test("Speed_ThousandFeaturesAndListsOf2000_ClickIsShownSoon", async (t) => {
  const description = fileWith(t, "large.xml", largeDescription(1000, 5));
  const served = await preview(t, description);
  const page = await openPage(t, served.url);
  await openSection(page, 0);
  const draw = randomNumbers(3);
  await expectSoon(t, "short lists", 50, { page, served }, (press) => clickSwitches(page, press, draw, kClicks));
  await expectSoon(t, "lists of 2,000", 50, { page, served }, (press) => chooseFromLongLists(page, press, draw, kClicks));
  assert.deepEqual(page.problems, []);
});

test("Speed_SavedFile_PageFollows", async (t) => {
  const description = copyOf(t, "office_laser.xml");
  const served = await preview(t, description, [officeRoutines]);
  const page = await openPage(t, served.url);
  const text = fs.readFileSync(description, "utf8");
  const times = [];
  for (let turn = 0; turn < (isLong ? 20 : 5); ++turn) {
    const seen = page.evaluate(async (wanted) => {
      const pane = document.querySelector(".panel:not([hidden]) .code");
      const start = Date.now();
      while (!pane.textContent.includes(wanted) && Date.now() - start < 10000) await new Promise((resolve) => setTimeout(resolve, 2));
      return Date.now();
    }, `NumCopies${turn}x`);
    // The page is watching before the file is saved.
    await page.evaluate(() => 0);
    fs.writeFileSync(description, text.replace("/NumCopies ", `/NumCopies${turn}x `));
    const saved = Date.now();
    times.push((await seen) - saved);
  }
  times.sort((a, b) => a - b);
  t.diagnostic(`saved file to changed page: p50 ${times[times.length >> 1]} ms, at most ${times.at(-1)} ms, ${times.length} saves`);
  assert.ok(p95(times) <= (machineIsBusy() ? 2000 : 500), `${times} ms`);
  assert.deepEqual(page.problems, []);
});

test("Speed_TenThousandFeatures_StaysUsable", async (t) => {
  const description = fileWith(t, "huge.xml", largeDescription(10000, 5));
  const served = await preview(t, description);
  const start = Date.now();
  const page = await openPage(t, served.url);
  const loaded = Date.now() - start;
  const opened = await page.evaluate(async () => {
    const before = performance.now();
    const section = document.querySelector("#sections > details");
    section.open = true;
    await new Promise((resolve) => setTimeout(resolve));
    const part = section.querySelectorAll("details")[50];
    part.open = true;
    await new Promise((resolve) => setTimeout(resolve));
    part.scrollIntoView();
    part.getBoundingClientRect();
    return performance.now() - before;
  });
  const searched = await page.evaluate(async () => {
    const before = performance.now();
    const field = document.getElementById("search");
    field.value = "feature09987";
    field.dispatchEvent(new Event("input", { bubbles: true }));
    while (document.querySelectorAll("#results .row").length !== 1) await new Promise((resolve) => setTimeout(resolve));
    const took = performance.now() - before;
    field.value = "";
    field.dispatchEvent(new Event("input", { bubbles: true }));
    return took;
  });
  await page.waitForSelector("#sections:not([hidden])");
  t.diagnostic(`10,000 features: page ${loaded} ms, section ${opened.toFixed(0)} ms, search ${searched.toFixed(0)} ms`);
  const draw = randomNumbers(5);
  await expectSoon(t, "10,000 features", 1000, { page, served }, (press) => clickSwitches(page, press, draw, isLong ? 60 : 15));
  const most = machineIsBusy() ? 4 : 1;
  assert.ok(loaded <= 5000 * most, `${loaded} ms to load`);
  assert.ok(opened <= 300 * most, `${opened} ms to open a section`);
  assert.ok(searched <= 300 * most, `${searched} ms to search`);
  assert.deepEqual(page.problems, []);
});
