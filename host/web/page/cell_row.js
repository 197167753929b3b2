// The row that every control of a settings pane stands in.

import { freshId, make } from './elements.js';

/** The data- attributes by which a control can be found. */
export function controlData({ domain, key }) {
  return { domain, key };
}

/** The words of a row: its label, and that it takes effect later where it does. */
function words({ label, respring }) {
  const parts = [make('span', { textContent: label })];
  if (respring) parts.push(make('small', { className: 'quiet', textContent: 'After a respring' }));
  return parts;
}

/** A row whose label belongs to `control`; `aside` stands before the control. */
export function createRow(item, control, ...aside) {
  control.id = freshId('setting');
  const label = make('label', { htmlFor: control.id, className: 'row-words' }, ...words(item));
  return make('div', { className: 'row', data: { cell: item.cell } }, label, ...aside, control);
}

/** A row for a group of controls, which is named by the row's label. */
export function createGroupRow(item, group) {
  const id = freshId('setting');
  group.setAttribute('aria-labelledby', id);
  const label = make('div', { id, className: 'row-words' }, ...words(item));
  return make('div', { className: 'row', data: { cell: item.cell } }, label, group);
}
