// The cells of a settings pane: each makes its control, sends what is chosen, and shows what the device says.

import { createAppCell, createAppListCell } from './app_cells.js';
import { createChoiceCell } from './choice_cell.js';
import { controlData, createRow } from './cell_row.js';
import { createDrag } from './drag.js';
import { make } from './elements.js';

const creators = {
  switch: createSwitchCell,
  choice: createChoiceCell,
  slider: createSliderCell,
  color: createColorCell,
  app: createAppCell,
  apps: createAppListCell,
};

export const isKnown = (cell) => Object.hasOwn(creators, cell);

/**
 * A cell for `item`: `row` for the page, `update(item)` with the device's values, and `updateApps(apps)`
 * where it is about applications. `set(key, value)` sends a change.
 */
export function createCell(item, set) {
  return creators[item.cell](item, set);
}

function createSwitchCell(item, set) {
  const input = make('input', { type: 'checkbox', className: 'switch', data: controlData(item) });
  input.setAttribute('role', 'switch');
  input.addEventListener('change', () => set(item.key, input.checked));
  return {
    row: createRow(item, input),
    update: ({ value }) => { input.checked = value; },
  };
}

function createSliderCell(item, set) {
  const { key, min, max, step } = item;
  const input = make('input', { type: 'range', min, max, step, data: controlData(item) });
  const output = make('output', { className: 'slider-value' });
  const decimals = (String(step).split('.')[1] ?? '').length;
  const show = () => { output.value = input.valueAsNumber.toFixed(decimals); };
  const drag = createDrag({ input, read: () => input.valueAsNumber, send: (value) => set(key, value) });
  input.addEventListener('input', show);
  return {
    row: createRow(item, input, output),
    update({ value }) {
      if (drag.isHeld()) return;
      input.value = value;
      show();
    },
  };
}

function createColorCell(item, set) {
  const input = make('input', { type: 'color', data: controlData(item) });
  const drag = createDrag({ input, read: () => input.value, send: (value) => set(item.key, value) });
  return {
    row: createRow(item, input),
    update({ value }) {
      if (!drag.isHeld()) input.value = value;
    },
  };
}
