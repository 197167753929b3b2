// The settings panes, whatever they hold: groups of cells, kept up to date in place.

import { createCell, isKnown } from './cells.js';
import { freshId, make } from './elements.js';

/**
 * Shows the panes in `pane`. `onRespringDue(due)` tells whether something differs from what the running
 * device has taken up. `update(settings)` shows what the device says; `updateApps(apps)` the apps to choose
 * from.
 */
export function createSettings(pane, send, onRespringDue) {
  let cells = []; // Everything but the groups, in the order of the panes.
  let shape = '';
  let apps = [];
  // The values that the running device started with, as JSON: of those items that it takes up only then.
  let taken = null;

  function build(settings) {
    cells = [];
    pane.replaceChildren(...settings.map(buildPane));
    if (settings.length > 0) return;
    pane.append(make('p', { className: 'quiet', textContent: 'Nothing to set here.' }));
  }

  function buildPane({ title, items }) {
    const children = [make('h2', { textContent: title })];
    let card = null;
    let group = { label: '' };
    const finish = () => {
      if (group.footer) children.push(make('p', { className: 'footnote', textContent: group.footer }));
    };
    for (const item of items) {
      if (item.cell === 'group') {
        finish();
        group = item;
        card = null;
        continue;
      }
      if (!card) {
        card = make('section', { className: 'card' });
        if (group.label) {
          const heading = make('h3', { id: freshId('group'), textContent: group.label });
          card.setAttribute('aria-labelledby', heading.id);
          children.push(heading);
        }
        children.push(card);
      }
      if (!isKnown(item.cell)) continue;
      const cell = createCell(item, (key, value) => send('set', [item.domain, key, value]));
      cells.push(cell);
      card.append(cell.row);
    }
    finish();
    return make('div', { className: 'settings' }, ...children);
  }

  function update(settings) {
    const items = settings.flatMap((each) => each.items).filter(({ cell }) => cell !== 'group');
    const newShape = JSON.stringify(settings.map(withoutValues));
    if (newShape !== shape) {
      shape = newShape;
      build(settings);
      for (const cell of cells) cell.updateApps?.(apps);
    }
    const shown = items.filter(({ cell }) => isKnown(cell));
    cells.forEach((cell, index) => cell.update(shown[index]));
    const awaiting = items.filter(({ respring }) => respring);
    const now = JSON.stringify(awaiting.map(({ value, values }) => value ?? values));
    taken ??= now;
    onRespringDue(now !== taken);
  }

  function updateApps(list) {
    apps = list;
    for (const cell of cells) cell.updateApps?.(apps);
  }

  /** The device starts afresh, and will take up everything as it is then. */
  function startAfresh() {
    taken = null;
    onRespringDue(false);
  }

  return { update, updateApps, startAfresh };
}

function withoutValues({ title, items }) {
  return { title, items: items.map((item) => ({ ...item, value: undefined, values: undefined })) };
}
