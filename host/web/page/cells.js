// The cells of a settings pane: each makes its control, sends what is chosen, and shows what the device says.

import { createAppCell, createAppListCell } from './app_cells.js';
import { createChoiceCell } from './choice_cell.js';
import { controlData, createRow } from './cell_row.js';
import { make } from './elements.js';
import { createThrottle } from './throttle.js';

const sendingInterval = 100; // Milliseconds between the values of a control that is being dragged.

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
  const step = item.step || 'any';
  const input = make('input', { type: 'range', data: controlData(item) });
  Object.assign(input, { min: item.min, max: item.max, step });
  const output = make('output', { className: 'slider-value' });
  const decimals = (String(item.step ?? 0.01).split('.')[1] ?? '').length;
  const show = () => { output.value = input.valueAsNumber.toFixed(decimals); };
  const held = hold(input, (value) => set(item.key, value), () => input.valueAsNumber);
  input.addEventListener('input', show);
  return {
    row: createRow(item, input, output),
    update({ value }) {
      if (held()) return;
      input.value = value;
      show();
    },
  };
}

function createColorCell(item, set) {
  const input = make('input', { type: 'color', data: controlData(item) });
  const held = hold(input, (value) => set(item.key, value), () => input.value);
  return {
    row: createRow(item, input),
    update({ value }) {
      if (!held()) input.value = value;
    },
  };
}

/**
 * Sends what `input` says while it is being dragged, now and then, and its last value when it is let go.
 * Tells whether it is held: then what the device says is older than what the person sees, and must not be
 * shown.
 */
function hold(input, send, value) {
  const throttle = createThrottle(send, sendingInterval);
  let isHeld = false;
  input.addEventListener('input', () => {
    isHeld = true;
    throttle.offer(value());
  });
  input.addEventListener('change', () => {
    isHeld = false;
    throttle.settle();
  });
  input.addEventListener('blur', () => { isHeld = false; });
  return () => isHeld;
}
