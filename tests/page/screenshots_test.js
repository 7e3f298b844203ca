// The pictures of docs/preview.md. They are written into build/page-tests/results, and
// with PAGE_TEST_SCREENSHOTS=1 into docs/images.

import fs from "node:fs";
import path from "node:path";
import test from "node:test";
import { chooseInList, copyOf, officeRoutines, openPage, preview, row, settled } from "./preview.js";
import { results, root } from "./tools.js";

const folder = process.env.PAGE_TEST_SCREENSHOTS === "1" ? path.join(root, "docs/images") : results;

// A copy with its routines beside it, so that the command is as short as a user's.
function printer(test, name) {
  const description = copyOf(test, name);
  const routines = path.join(path.dirname(description), path.basename(officeRoutines));
  fs.copyFileSync(officeRoutines, routines);
  return { description, routines: [routines] };
}

async function shoot(page, name) {
  fs.mkdirSync(folder, { recursive: true });
  await page.waitForTimeout(250);
  await page.screenshot({ path: path.join(folder, `preview-${name}.png`) });
}

for (const colorScheme of ["light", "dark"]) {
  test(`Screenshots_${colorScheme}_AreWritten`, async (t) => {
    const { description, routines } = printer(t, "office_laser.xml");
    const office = await preview(t, description, routines);
    const page = await openPage(t, office.url, { colorScheme, viewport: { width: 1360, height: 850 } });
    await page.locator("[data-preset=handout]").click();
    await settled(page);
    await row(page, "Duplex").locator(".choice-button").focus();
    await shoot(page, `office-${colorScheme}`);

    const roll = printer(t, "label_printer.xml");
    const label = await preview(t, roll.description, roll.routines);
    const other = await openPage(t, label.url, { colorScheme, viewport: { width: 1360, height: 850 } });
    await other.locator("[data-preset=shipping]").click();
    await settled(other);
    await row(other, "RollWidth").locator(".radio-box:checked, .choice-button").first().focus();
    await shoot(other, `label-${colorScheme}`);
  });
}

test("Screenshots_RefusedPageNarrowAndFaults_AreWritten", async (t) => {
  const { description, routines } = printer(t, "office_laser.xml");
  const office = await preview(t, description, routines);
  const page = await openPage(t, office.url, { viewport: { width: 1360, height: 850 } });
  await page.locator("[data-preset=handout]").click();
  await settled(page);
  await chooseInList(page, "MediaType", "CardStock");
  await page.waitForSelector(".notice-offer");
  const copies = row(page, "MediaWeight").locator(".number-input");
  await copies.fill("400");
  await copies.press("Enter");
  await page.waitForSelector(".notice-refused");
  await row(page, "MediaType").evaluate((node) => node.scrollIntoView({ block: "center" }));
  await shoot(page, "refused");

  await page.locator("#tab-page").click();
  await page.locator("#place-close").click();
  await page.waitForSelector(".sheet:not([hidden])");
  await shoot(page, "page");

  const narrow = await openPage(t, office.url, { viewport: { width: 390, height: 780 } });
  await shoot(narrow, "narrow");

  fs.writeFileSync(description, fs.readFileSync(description, "utf8").replace('Name="Duplex" CLOKey="sides"', 'CLOKey="sides"'));
  await page.waitForSelector(".finding .line");
  await shoot(page, "faults");
});
