// The installed applications: a click launches one, another ends it.

import { iconAddress } from './address.js';

export function createApps(list, send) {
  let rows = new Map(); // By bundle.
  let shown = '';

  function update({ apps, frontmost }) {
    const installed = JSON.stringify(apps.map(({ bundle, name }) => [bundle, name]));
    if (installed !== shown) {
      shown = installed;
      rows = new Map(apps.map((app) => [app.bundle, createRow(app, send)]));
      list.replaceChildren(...[...rows.values()].map(({ row }) => row));
    }
    for (const { bundle, running } of apps) rows.get(bundle).update(running, bundle === frontmost);
  }

  return { update };
}

function createRow({ bundle, name }, send) {
  const row = document.createElement('li');
  row.dataset.bundle = bundle;
  row.className = 'app';

  const launch = document.createElement('button');
  launch.type = 'button';
  launch.className = 'app-launch';
  const icon = document.createElement('img');
  icon.alt = '';
  icon.src = iconAddress(bundle);
  icon.draggable = false;
  icon.addEventListener('error', () => icon.classList.add('missing'));
  const label = document.createElement('span');
  label.textContent = name;
  const mark = document.createElement('span');
  mark.className = 'app-mark';
  launch.append(icon, label, mark);
  launch.addEventListener('click', () => send('launch', [bundle]));

  const close = document.createElement('button');
  close.type = 'button';
  close.className = 'app-close';
  close.textContent = 'Close';
  close.setAttribute('aria-label', `Close ${name}`);
  close.addEventListener('click', () => {
    launch.focus();
    send('terminate', [bundle]);
  });
  row.append(launch, close);

  function update(running, inFront) {
    row.dataset.running = running;
    row.dataset.front = inFront;
    close.hidden = !running;
    mark.textContent = inFront ? 'in front' : '';
  }

  return { row, update };
}
