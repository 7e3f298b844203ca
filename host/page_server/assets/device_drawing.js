// The printer as a drawing: the tray that feeds, the sheets that come out, and what is
// done to them. Colours come from the style sheet, by class.

import { svg } from "./dom.js";

const kWidth = 320;
const kTop = 18;
const kHeight = 194;

function rect(x, y, width, height, name, radius = 4) {
  return svg("rect", { x, y, width, height, rx: radius, class: name });
}

function line(points, name) {
  return svg("polyline", { points: points.map((point) => point.join(",")).join(" "), class: name });
}

function text(x, y, words, name = "d-text", anchor = "middle") {
  return svg("text", { x, y, class: name, "text-anchor": anchor, text: words });
}

/** Words of PostScript for a tray, as short as a label must be. */
function trayLabel(tray) {
  return tray.length > 18 ? `${tray.slice(0, 17)}…` : tray;
}

function printer(device) {
  const tray = device.tray ?? "";
  const manual = /manual|bypass|multipurpose/i.test(tray);
  const number = Number.parseInt(/\d+/.exec(tray)?.[0] ?? "", 10);
  const parts = [rect(18, 62, 124, 56, "d-body", 8), rect(34, 48, 92, 16, "d-body", 6), rect(100, 76, 30, 10, "d-panel", 3)];
  for (let at = 0; at < 3; ++at) {
    const active = !manual && (number === at + 1 || (Number.isNaN(number) && at === 0));
    parts.push(rect(24, 124 + at * 22, 112, 18, active ? "d-tray d-active" : "d-tray", 4));
    parts.push(rect(70, 131 + at * 22, 20, 4, active ? "d-grip d-active-grip" : "d-grip", 2));
  }
  parts.push(line([[18, 92], [2, 104]], manual ? "d-feed d-active-line" : "d-feed"));
  parts.push(text(80, 204, tray ? trayLabel(tray) : "the printer chooses"));
  return parts;
}

function staples(finishing, left, top, width) {
  const parts = [];
  const has = (word) => finishing.some((one) => one.toLowerCase().includes(word));
  if (has("staple")) {
    const right = has("right");
    const dual = has("dual");
    const x = right ? left + width - 20 : left + 8;
    parts.push(dual ? line([[left + 6, top + 30], [left + 6, top + 42]], "d-staple") : line([[x, top + 14], [x + 10, top + 6]], "d-staple"));
    if (dual) parts.push(line([[left + 6, top + 84], [left + 6, top + 96]], "d-staple"));
  }
  return parts;
}

function holes(finishing, left, top, height) {
  const punched = finishing.find((one) => /punch/i.test(one));
  if (!punched) return [];
  const count = Number.parseInt(/\d+/.exec(punched)?.[0] ?? "2", 10);
  const parts = [];
  for (let at = 0; at < Math.min(count, 6); ++at) {
    parts.push(svg("circle", { cx: left + 7, cy: top + ((at + 1) * height) / (count + 1), r: 2.6, class: "d-hole" }));
  }
  return parts;
}

function fold(finishing, left, top, width, height) {
  if (!finishing.some((one) => /fold/i.test(one))) return [];
  return [line([[left, top + height / 2], [left + width, top + height / 2]], "d-fold")];
}

function sheets(device) {
  const [wide, high] = device.size ?? [595, 842];
  const longest = Math.max(wide, high, 1);
  const width = Math.max(34, (wide / longest) * 116);
  const height = Math.max(34, (high / longest) * 116);
  const left = 234 - width / 2;
  const top = 100 - height / 2;
  const finishing = device.finishing ?? [];
  const copies = Math.min(3, Math.max(1, device.copies ?? 1));
  const parts = [];
  for (let at = copies - 1; at > 0; --at) parts.push(rect(left + at * 6, top - at * 6, width, height, "d-sheet d-behind", 2));
  parts.push(rect(left, top, width, height, "d-sheet", 2));
  for (let at = 0; at < 4; ++at) {
    const length = at === 3 ? 0.4 : 0.7;
    parts.push(line([[left + width * 0.15, top + height * (0.24 + at * 0.12)], [left + width * (0.15 + length), top + height * (0.24 + at * 0.12)]], "d-words"));
  }
  if (device.duplex) parts.push(...turned(device, left, top, width, height));
  return [...parts, ...fold(finishing, left, top, width, height), ...holes(finishing, left, top, height), ...staples(finishing, left, top, width)];
}

// An arrow around the edge on which the sheet is turned over.
function turned(device, left, top, width, height) {
  const long = !device.tumble;
  const side = (height >= width) === long;
  const path = side
    ? `M ${left + width + 6} ${top + height * 0.35} c 18 6 18 ${height * 0.24} 0 ${height * 0.3}`
    : `M ${left + width * 0.35} ${top + height + 6} c 6 18 ${width * 0.24} 18 ${width * 0.3} 0`;
  return [svg("path", { d: path, class: "d-turn" })];
}

function describe(device) {
  const parts = [];
  parts.push(device.tray ? `paper from ${device.tray}` : "paper from the tray that the printer chooses");
  parts.push(device.duplex ? `printed on both sides, turned on the ${device.tumble ? "short" : "long"} edge` : "printed on one side");
  if (device.copies > 1) parts.push(`${device.copies} copies`);
  if (device.finishing?.length) parts.push(device.finishing.join(", "));
  return parts.join("; ");
}

/**
 * Draws what a page device says.
 * @param {object} device size, orientation, duplex, tumble, tray, media, copies, finishing
 * @returns {SVGElement}
 */
export function drawDevice(device) {
  const words = [device.media, device.copies > 1 ? `${device.copies} copies` : ""].filter(Boolean).join(", ");
  return svg(
    "svg",
    { viewBox: `0 ${kTop} ${kWidth} ${kHeight}`, class: "d-drawing", role: "img", "aria-label": describe(device) },
    ...printer(device),
    svg("path", { d: "M 146 84 h 22 m -7 -6 l 7 6 l -7 6", class: "d-arrow" }),
    ...sheets(device),
    ...(words ? [text(234, 204, words)] : []),
  );
}
