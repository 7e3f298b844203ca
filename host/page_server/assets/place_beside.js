// Where a box that floats above the page goes: below what it belongs to, or above it
// where there is more room, and always inside the window.

/**
 * @param {HTMLElement} box
 * @param {Element} anchor
 * @param {{gap: number, sameWidth: boolean}} options
 */
export function placeBeside(box, anchor, { gap, sameWidth }) {
  const around = anchor.getBoundingClientRect();
  const width = document.documentElement.clientWidth;
  const height = window.innerHeight;
  const margin = 8;
  if (sameWidth) box.style.width = `${Math.min(Math.max(around.width, 280), width - 2 * margin)}px`;
  const below = height - around.bottom - gap - margin;
  const above = around.top - gap - margin;
  const wanted = box.scrollHeight;
  const goesBelow = below >= Math.min(wanted, 240) || below >= above;
  box.style.maxHeight = `${Math.max(80, goesBelow ? below : above)}px`;
  const size = box.getBoundingClientRect();
  const left = Math.min(Math.max(margin, around.left), width - margin - size.width);
  const top = goesBelow ? around.bottom + gap : around.top - gap - size.height;
  box.style.left = `${Math.max(margin, left)}px`;
  box.style.top = `${Math.max(margin, top)}px`;
}
