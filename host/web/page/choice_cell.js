// A choice: segments side by side for a few, a menu for more.

import { controlData, createGroupRow, createRow } from './cell_row.js';
import { freshId, make } from './elements.js';

const mostSegments = 4;

export function createChoiceCell(item, set) {
  return item.choices.length > mostSegments ? createMenu(item, set) : createSegments(item, set);
}

function createMenu(item, set) {
  const options = item.choices.map(({ value, title }) => make('option', { value, textContent: title }));
  const select = make('select', { data: controlData(item) }, ...options);
  select.addEventListener('change', () => set(item.key, item.choices[select.selectedIndex].value));
  return {
    row: createRow(item, select),
    update({ value }) { select.selectedIndex = item.choices.findIndex((choice) => choice.value === value); },
  };
}

function createSegments(item, set) {
  const name = freshId('choice');
  const inputs = item.choices.map(({ value }) => make('input', { type: 'radio', name, value }));
  const labels = item.choices.map(({ title }, index) =>
    make('label', {}, inputs[index], make('span', { textContent: title })));
  const group = make('div', { className: 'segments', data: controlData(item) }, ...labels);
  group.setAttribute('role', 'radiogroup');
  group.addEventListener('change', (event) => {
    set(item.key, item.choices[inputs.indexOf(event.target)].value);
  });
  return {
    row: createGroupRow(item, group),
    update({ value }) {
      inputs.forEach((input, index) => { input.checked = item.choices[index].value === value; });
    },
  };
}
