// The program that serves the page, and pages of it.

import { spawn } from "node:child_process";
import fs from "node:fs";
import os from "node:os";
import path from "node:path";
import { build, root, theBrowser } from "./tools.js";

/** The routines of the example printers. */
export const officeRoutines = path.join(build, "lib/liboffice_routines.so");

/** A folder that goes when the test is over. */
export function temporaryFolder(test) {
  const folder = fs.mkdtempSync(path.join(os.tmpdir(), "page-test-"));
  test.after(() => fs.rmSync(folder, { recursive: true, force: true }));
  return folder;
}

/** A copy of a shipped printer, which a test may change. */
export function copyOf(test, name) {
  const file = path.join(temporaryFolder(test), name);
  fs.copyFileSync(path.join(root, "descriptions", name), file);
  return file;
}

/** A file with a text. */
export function fileWith(test, name, text) {
  const file = path.join(temporaryFolder(test), name);
  fs.writeFileSync(file, text);
  return file;
}

// Milliseconds that a process and its children have worked.
function processorTime(pid) {
  let ticks = 0;
  for (const one of fs.readdirSync("/proc").filter((name) => /^\d+$/.test(name))) {
    try {
      const fields = fs.readFileSync(`/proc/${one}/stat`, "latin1").split(") ").at(-1).split(" ");
      if (Number(one) === pid || Number(fields[1]) === pid) ticks += Number(fields[11]) + Number(fields[12]);
    } catch {
      // It has ended meanwhile.
    }
  }
  return ticks * 10;
}

/**
 * Serves the page of a description until the test is over.
 * @param {object} test of node:test
 * @param {string} description
 * @param {string[]} routines libraries of routines
 * @param {Object<string, string>} environment more of it
 * @returns {Promise<{url: string, pid: number, stop: function(): Promise<void>, complaints: function(): string}>}
 */
export async function preview(test, description, routines = [], environment = {}) {
  const folder = path.dirname(description);
  const words = [...routines.flatMap((one) => ["--callbacks", path.relative(folder, one)]), path.basename(description)];
  const child = spawn(path.join(build, "bin/driver-feature-preview"), words, { cwd: folder, env: { ...process.env, ...environment } });
  const ended = new Promise((resolve) => child.on("exit", resolve));
  let complaints = "";
  child.stderr.on("data", (data) => {
    complaints += data;
  });
  const stop = async () => {
    child.kill("SIGTERM");
    await ended;
  };
  test.after(stop);
  const url = await new Promise((resolve, reject) => {
    let shown = "";
    child.stdout.on("data", (data) => {
      shown += data;
      const address = /http:\S+/.exec(shown);
      if (address && shown.includes("\n")) resolve(address[0]);
    });
    child.on("exit", (status) => reject(new Error(`the program ended with status ${status}: ${complaints}`)));
  });
  return { url, pid: child.pid, stop, complaints: () => complaints, processorTime: () => processorTime(child.pid) };
}

// With PAGE_TEST_ASSETS=DIR the files of the page are those of a folder, not those that the
// program was built with: for those who work on them.
async function useFolder(context, url, assets) {
  const base = url.replace(/#.*/, "");
  for (const name of fs.readdirSync(assets)) {
    const file = { path: path.join(assets, name) };
    await context.route(base + name, (route) => route.fulfill(file));
    if (name === "index.html") await context.route(base, (route) => route.fulfill(file));
  }
}

/**
 * Opens a page. Whatever it complains of to the console fails the test, through
 * expectNoProblems().
 * @param {object} test
 * @param {string} url
 * @param {object} options of the browser's context
 */
export async function openPage(test, url, options = {}) {
  const browser = await theBrowser();
  const context = await browser.newContext({
    viewport: { width: 1440, height: 900 },
    reducedMotion: "reduce",
    locale: "en-GB",
    permissions: ["clipboard-read", "clipboard-write"],
    ...options,
  });
  test.after(() => context.close());
  if (process.env.PAGE_TEST_ASSETS) await useFolder(context, url, process.env.PAGE_TEST_ASSETS);
  const page = await context.newPage();
  page.setDefaultTimeout(10000);
  page.problems = [];
  page.on("pageerror", (error) => page.problems.push(error.stack));
  page.on("console", (line) => {
    if (line.type() === "error") page.problems.push(line.text());
  });
  await page.goto(url);
  await page.waitForSelector("html[data-ready]");
  return page;
}

/** The texts of the three outputs as the page shows them, without what has gone. */
export function shownOutputs(page) {
  return page.evaluate(() => {
    const texts = {};
    const was = document.querySelector(".tab[aria-selected=true]");
    for (const name of ["ps", "pjl", "ticket"]) {
      document.getElementById(`tab-${name}`).click();
      const copy = document.querySelector(`#panel-${name} .code`).cloneNode(true);
      for (const gone of copy.querySelectorAll("del")) gone.remove();
      texts[name] = copy.textContent;
    }
    was.click();
    return texts;
  });
}

/** The command that the page shows. */
export function shownCommand(page) {
  return page.evaluate(() => document.getElementById("command").textContent);
}

/** Waits until no request for a change is under way. */
export function settled(page) {
  return page.waitForFunction(() => (document.documentElement.dataset.pending ?? "0") === "0");
}

/** Opens all sections and parts of them. */
export function openSections(page) {
  return page.evaluate(async () => {
    for (let left = 10; left > 0; --left) {
      const closed = [...document.querySelectorAll("#sections details:not([open])")];
      if (closed.length === 0) return;
      for (const section of closed) section.open = true;
      await new Promise((resolve) => setTimeout(resolve, 20));
    }
  });
}

/** The row of a feature in the sections. */
export function row(page, name) {
  return page.locator(`#sections [data-feature="${name}"]`);
}

/** Chooses in a list that opens. */
export async function chooseInList(page, name, value) {
  await row(page, name).locator(".choice-button").click();
  await page.locator(`.option[data-value="${value}"]`).click();
}
