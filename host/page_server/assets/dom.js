// Building nodes. Texts always go in as text, never as markup: they come from
// descriptions of others.

/**
 * The element of an id that index.html promises.
 * @param {string} id
 * @returns {HTMLElement}
 */
export function byId(id) {
  const found = document.getElementById(id);
  if (!found) throw new Error(`the page has no element "${id}"`);
  return found;
}

/**
 * Makes an element. An attribute whose value is null, undefined or false is left
 * out, true gives an empty one, and "text" is the text inside.
 * @param {string} tag
 * @param {Object<string, *>} attributes
 * @param {...(Node|string)} children
 * @returns {HTMLElement}
 */
export function element(tag, attributes = {}, ...children) {
  const made = document.createElement(tag);
  for (const name in attributes) {
    const value = attributes[name];
    if (value === null || value === undefined || value === false) continue;
    if (name === "text") made.textContent = value;
    else made.setAttribute(name, value === true ? "" : value);
  }
  if (children.length > 0) made.append(...children);
  return made;
}

const kSvg = "http://www.w3.org/2000/svg";

/**
 * The same for SVG.
 * @param {string} tag
 * @param {Object<string, *>} attributes
 * @param {...Node} children
 * @returns {SVGElement}
 */
export function svg(tag, attributes = {}, ...children) {
  const made = document.createElementNS(kSvg, tag);
  for (const name in attributes) {
    if (name === "text") made.textContent = attributes[name];
    else made.setAttribute(name, attributes[name]);
  }
  made.append(...children);
  return made;
}

let lastId = 0;

/**
 * An id that no other element of the page has.
 * @param {string} what its beginning
 */
export function freshId(what) {
  return `${what}-${++lastId}`;
}

/**
 * Sets or removes an attribute, and leaves the node alone when nothing differs: a
 * write of the same value still costs the browser a look at its styles.
 * @param {Element} node
 * @param {string} name
 * @param {string|null} value null removes it
 */
export function setAttribute(node, name, value) {
  if (value === null) {
    if (node.hasAttribute(name)) node.removeAttribute(name);
  } else if (node.getAttribute(name) !== value) {
    node.setAttribute(name, value);
  }
}

/**
 * The same for the text of a node.
 * @param {Element} node
 * @param {string} text
 */
export function setText(node, text) {
  if (node.textContent !== text) node.textContent = text;
}
