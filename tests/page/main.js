// All tests of the page, one after another in one browser. Names after -- choose files:
// node main.js clicks speed

import { after } from "node:test";
import { closeBrowser } from "./tools.js";

const kFiles = ["pieces", "controls", "page", "follow", "details", "layout", "keyboard", "accessibility", "faults", "printer", "clicks", "speed", "screenshots"];

const wanted = process.argv.slice(2);
const unknown = wanted.filter((name) => !kFiles.includes(name));
if (unknown.length > 0) {
  console.error(`page tests: there is no ${unknown.join(", ")}; there are ${kFiles.join(", ")}`);
  process.exit(2);
}
for (const name of kFiles) if (wanted.length === 0 || wanted.includes(name)) await import(`./${name}_test.js`);

after(closeBrowser);
