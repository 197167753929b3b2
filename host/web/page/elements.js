// Small helpers that make elements.

/** An element with properties set and children appended; `data` goes to its data- attributes. */
export function make(tag, { data = {}, ...properties } = {}, ...children) {
  const element = document.createElement(tag);
  Object.assign(element, properties);
  Object.assign(element.dataset, data);
  element.append(...children);
  return element;
}

let count = 0;

/** An id that no other element of the page has. */
export function freshId(prefix) {
  count += 1;
  return `${prefix}-${count}`;
}
