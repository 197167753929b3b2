// The inspector: asks for the views at the pointer's place, outlines them on the screen and lists them.

import { roundToHundredths } from './numbers.js';
import { createOutlines } from './outlines.js';
import { createViewList } from './views.js';

const isOnScreen = ([x, y], { width, height }) => x >= 0 && y >= 0 && x < width && y < height;

/**
 * Given the `glass` and the `canvas` that the pointer is over, the `svg` to draw in, the `toggle`, the
 * `pointRow` with the `fields` for x and y, the `viewList` to fill, the `device` that tells points, and `send`.
 *
 * `update(state)` takes the device's state, `answer(inspection)` what was asked for. `forget()` is due when the
 * connection has been lost, `ask()` when it is there again.
 */
export function createInspector({ glass, canvas, svg, toggle, pointRow, fields, viewList, device, send }) {
  const outlines = createOutlines({ svg });
  const list = createViewList({ list: viewList, onPick: pick });
  let point = null; // Where to look; stays when the pointer leaves, so that the list can be studied.
  let views = [];
  let picked = null;
  let isAsking = false; // A question is under way.
  let isStale = false; // Something has changed since it was asked.

  function setOn(on) {
    toggle.checked = on;
    canvas.dataset.inspecting = on;
    pointRow.hidden = !on;
    if (on) {
      ask();
      return;
    }
    views = [];
    outlines.clear();
    list.show(views);
  }

  function lookAt(next) {
    point = next;
    point.forEach((value, axis) => {
      if (document.activeElement !== fields[axis]) fields[axis].value = Math.round(value);
    });
    ask();
  }

  /** One question at a time: whatever changes meanwhile is asked about after the answer. */
  function ask() {
    if (!toggle.checked || !point) return;
    isStale = isAsking;
    if (!isAsking) isAsking = send('inspect', point);
  }

  function answer(inspection) {
    isAsking = false;
    if (!toggle.checked) return;
    views = inspection.views;
    list.show(views);
    outline();
    if (isStale) ask();
  }

  function pick(index) {
    picked = index;
    outline();
  }

  function outline() {
    outlines.show(views, views.length - 1 - Math.min(picked ?? 0, views.length - 1));
  }

  function follow(event) {
    if (!toggle.checked) return;
    const { x, y } = device.pointAt(event.clientX, event.clientY);
    if (isOnScreen([x, y], device.size())) lookAt([x, y].map(roundToHundredths));
  }

  glass.addEventListener('pointermove', follow);
  glass.addEventListener('pointerdown', follow);
  canvas.addEventListener('picture', ask);
  toggle.addEventListener('change', () => setOn(toggle.checked));
  for (const field of fields) {
    field.addEventListener('input', () => {
      const typed = fields.map((each) => each.valueAsNumber);
      if (isOnScreen(typed, device.size())) lookAt(typed);
    });
  }

  return {
    answer,
    toggle: () => setOn(!toggle.checked),
    update: ({ screen }) => outlines.setViewBox(screen),
    /** With the connection the answer to what was asked is gone. */
    forget: () => { isAsking = false; },
    ask,
  };
}
