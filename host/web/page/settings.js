// The settings panes, whatever they hold: groups of cells, kept up to date in place.

import { createCell, isKnown } from './cells.js';
import { freshId, make } from './elements.js';

/**
 * Given the `pane` to fill, the `respringNotice` to show while the running device has not taken up all of the
 * settings, and `send`. `update(settings)` takes the panes as the device says them, `updateApps(apps)` the
 * applications to choose from.
 */
export function createSettings({ pane, respringNotice, send }) {
  let cells = []; // {cell, key}; the key is that of the cell's item.
  let shape = '';
  let apps = [];

  function build(settings) {
    cells = [];
    pane.replaceChildren(...settings.map(buildPane));
    updateApps(apps);
    if (settings.length > 0) return;
    pane.append(make('p', { className: 'quiet', textContent: 'Nothing to set here.' }));
  }

  function buildPane({ title, items }) {
    const heading = make('h2', { textContent: title });
    return make('div', { className: 'settings' }, heading, ...groupsOf(items).flatMap(buildGroup));
  }

  /** The elements of a group: what it is called, its card, and what there is to say below. */
  function buildGroup({ label, footer, items }) {
    const elements = [];
    if (items.length > 0) {
      const card = make('section', { className: 'card' }, ...items.map(buildRow));
      elements.push(card);
      if (label) {
        const heading = make('h3', { id: freshId('group'), textContent: label });
        card.setAttribute('aria-labelledby', heading.id);
        elements.unshift(heading);
      }
    }
    if (footer) elements.push(make('p', { className: 'footnote', textContent: footer }));
    return elements;
  }

  function buildRow(item) {
    const cell = createCell(item, (key, value) => send('set', [item.domain, key, value]));
    cells.push({ cell, key: keyOf(item) });
    return cell.row;
  }

  function update(settings) {
    const newShape = JSON.stringify(settings.map(withoutValues));
    if (newShape !== shape) {
      shape = newShape;
      build(settings);
    }
    const items = settings.flatMap((each) => each.items);
    const itemOfKey = new Map(items.map((item) => [keyOf(item), item]));
    for (const { cell, key } of cells) cell.update(itemOfKey.get(key));
    respringNotice.hidden = !items.some(({ due }) => due);
  }

  function updateApps(list) {
    apps = list;
    for (const { cell } of cells) cell.updateApps?.(apps);
  }

  return { update, updateApps };
}

/** A pane's items by the groups that they stand in; those before the first are in one that has no words. */
function groupsOf(items) {
  const groups = [{ items: [] }];
  for (const item of items) {
    if (item.cell === 'group') groups.push({ label: item.label, footer: item.footer, items: [] });
    else if (isKnown(item.cell)) groups.at(-1).items.push(item);
  }
  return groups;
}

/** What tells an item from all others, whatever it holds. */
function keyOf({ cell, domain, key, keyPrefix }) {
  return JSON.stringify([cell, domain, key ?? keyPrefix]);
}

/** A pane without what changes while it is shown. */
function withoutValues({ title, items }) {
  const changing = { value: undefined, values: undefined, due: undefined };
  return { title, items: items.map((item) => ({ ...item, ...changing })) };
}
