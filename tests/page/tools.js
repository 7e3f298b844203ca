// What the tests share: packages, programs, browsers. The packages are where run.sh
// has put them, in the build folder, so that the sources stay as they are.

import { createRequire } from "node:module";
import path from "node:path";
import { fileURLToPath } from "node:url";

/** The project's folder. */
export const root = path.resolve(path.dirname(fileURLToPath(import.meta.url)), "../..");
/** The build that is tested. */
export const build = path.resolve(root, process.env.PAGE_TEST_BUILD ?? "build/release");
/** The files of the page. */
export const assets = process.env.PAGE_TEST_ASSETS ?? path.join(root, "host/page_server/assets");
/** Where results go. */
export const results = path.resolve(root, "build/page-tests/results");
/** The long run rather than the quick one. */
export const isLong = process.env.PAGE_TEST_ALL === "1";

const require = createRequire(path.join(root, "build/page-tests/packages/"));
const { chromium } = require("playwright-core");
/** The text of axe-core, to be run in a page. */
export const axeSource = require("axe-core").source;
/** The checker of HTML. */
export const { HtmlValidate } = require("html-validate");

let browser = null;

/** Debian's Chromium, started once. As root it cannot have a sandbox of its own. */
export async function theBrowser() {
  const executablePath = process.env.PAGE_TEST_CHROMIUM ?? "/usr/bin/chromium";
  // Letters in shades of grey: the pictures do not depend on the screen, and are smaller.
  const args = ["--disable-lcd-text", ...(process.getuid() === 0 ? ["--no-sandbox"] : [])];
  browser ??= await chromium.launch({ executablePath, args });
  return browser;
}

/** Ends it. */
export async function closeBrowser() {
  await browser?.close();
  browser = null;
}

/**
 * Random numbers that are the same in each run.
 * @param {number} seed
 * @returns {function(number): number} a whole number from 0 to below its argument
 */
export function randomNumbers(seed) {
  let state = seed >>> 0;
  return (below) => {
    state = (state + 0x6d2b79f5) >>> 0;
    let mixed = Math.imul(state ^ (state >>> 15), state | 1);
    mixed ^= mixed + Math.imul(mixed ^ (mixed >>> 7), mixed | 61);
    return ((mixed ^ (mixed >>> 14)) >>> 0) % below;
  };
}

/** The value below which 95 of 100 lie. */
export function p95(numbers) {
  const sorted = [...numbers].sort((a, b) => a - b);
  return sorted[Math.min(sorted.length - 1, Math.floor(sorted.length * 0.95))];
}
