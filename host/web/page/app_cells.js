// The cells about applications: one of them, or a switch for each.

import { makeAppIcon } from './app_icon.js';
import { onlyForOtherApps } from './app_list.js';
import { controlData, createGroupRow, createRow } from './cell_row.js';
import { freshId, make } from './elements.js';

const none = { bundle: '', name: 'None' };

export function createAppCell(item, set) {
  const select = make('select', { data: controlData(item) });
  let apps = [];
  let chosen = '';
  select.addEventListener('change', () => set(item.key, select.value || null));

  const offer = onlyForOtherApps((offers) => {
    select.replaceChildren(...offers.map(({ bundle, name }) =>
      make('option', { value: bundle, textContent: name })));
  });

  function show() {
    // An application that is set but not installed can still be seen, and taken away.
    const isInstalled = chosen === '' || apps.some(({ bundle }) => bundle === chosen);
    offer([none, ...apps, ...(isInstalled ? [] : [{ bundle: chosen, name: chosen }])]);
    select.value = chosen;
  }

  return {
    row: createRow(item, select),
    update({ value }) {
      chosen = value ?? '';
      show();
    },
    updateApps(list) {
      apps = list;
      show();
    },
  };
}

export function createAppListCell(item, set) {
  const list = make('ul');
  list.setAttribute('role', 'list');
  const inputs = new Map(); // By bundle.
  let values = {};

  function createSwitch({ bundle, name }) {
    const key = item.keyPrefix + bundle;
    const input = make('input', {
      type: 'checkbox',
      id: freshId('setting'),
      className: 'switch',
      data: controlData({ domain: item.domain, key }),
    });
    input.setAttribute('role', 'switch');
    input.addEventListener('change', () => set(key, input.checked));
    inputs.set(bundle, input);
    const words = { htmlFor: input.id, className: 'row-words app-words' };
    const label = make('label', words, makeAppIcon(bundle), name);
    return make('li', { className: 'row', data: { bundle } }, label, input);
  }

  const offer = onlyForOtherApps((apps) => {
    inputs.clear();
    list.replaceChildren(...apps.map(createSwitch));
  });

  function show() {
    for (const [bundle, input] of inputs) input.checked = values[bundle] ?? false;
  }

  return {
    row: createGroupRow(item, list),
    update(next) {
      values = next.values;
      show();
    },
    updateApps(apps) {
      offer(apps);
      show();
    },
  };
}
