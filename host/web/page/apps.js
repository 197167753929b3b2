// The installed applications: a click launches one, another ends it.

import { makeAppIcon } from './app_icon.js';
import { onlyForOtherApps } from './app_list.js';
import { make } from './elements.js';

/** Given the `list` to fill and `send`; `update(state)` takes the device's state. */
export function createApps({ list, send }) {
  let rows = new Map(); // By bundle.

  const build = onlyForOtherApps((apps) => {
    rows = new Map(apps.map((app) => [app.bundle, createRow(app, send)]));
    list.replaceChildren(...[...rows.values()].map(({ row }) => row));
  });

  function update({ apps, frontmost }) {
    build(apps);
    for (const { bundle, running } of apps) rows.get(bundle).update(running, bundle === frontmost);
  }

  return { update };
}

function createRow({ bundle, name }, send) {
  const mark = make('span', { className: 'app-mark' });
  const launch = make('button', { type: 'button', className: 'app-launch' },
    makeAppIcon(bundle), make('span', { textContent: name }), mark);
  launch.addEventListener('click', () => send('launch', [bundle]));

  const close = make('button', { type: 'button', className: 'app-close', textContent: 'Close' });
  close.setAttribute('aria-label', `Close ${name}`);
  close.addEventListener('click', () => {
    launch.focus();
    send('terminate', [bundle]);
  });

  function update(isRunning, isInFront) {
    close.hidden = !isRunning;
    mark.textContent = isInFront ? 'in front' : '';
  }

  return { row: make('li', { className: 'app', data: { bundle } }, launch, close), update };
}
