// The cells about applications: one of them, or a switch for each.

import { iconAddress } from './address.js';
import { controlData, createGroupRow, createRow } from './cell_row.js';
import { freshId, make } from './elements.js';

const none = { bundle: '', name: 'None' };

export function createAppCell(item, set) {
  const select = make('select', { data: controlData(item) });
  let apps = [];
  let chosen = '';
  let offered = '';
  select.addEventListener('change', () => set(item.key, select.value || null));

  function show() {
    // An application that is set but not installed can still be seen, and taken away.
    const isInstalled = chosen === '' || apps.some(({ bundle }) => bundle === chosen);
    const offers = [none, ...apps, ...(isInstalled ? [] : [{ bundle: chosen, name: chosen }])];
    const names = JSON.stringify(offers.map(({ bundle, name }) => [bundle, name]));
    if (names !== offered) {
      offered = names;
      select.replaceChildren(...offers.map(({ bundle, name }) =>
        make('option', { value: bundle, textContent: name })));
    }
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
  const list = make('ul', { className: 'app-switches' });
  list.setAttribute('role', 'list');
  let inputs = new Map(); // By bundle.
  let values = {};
  let offered = '';

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
    const icon = make('img', { src: iconAddress(bundle), alt: '', draggable: false });
    icon.addEventListener('error', () => icon.classList.add('missing'));
    const label = make('label', { htmlFor: input.id, className: 'row-words app-words' }, icon, name);
    return make('li', { className: 'row', data: { bundle } }, label, input);
  }

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
      const names = JSON.stringify(apps.map(({ bundle, name }) => [bundle, name]));
      if (names !== offered) {
        offered = names;
        inputs = new Map();
        list.replaceChildren(...apps.map(createSwitch));
      }
      show();
    },
  };
}
