// The inspector: asks for the views at the pointer's place, outlines them on the screen and lists them.

import { createOutlines } from './outlines.js';
import { createViewList } from './views.js';

const patience = 1000; // Milliseconds after which a question counts as lost.

const round = (value) => Math.round(value * 100) / 100;

export function createInspector({ glass, canvas, svg, device, send }) {
  const toggle = document.getElementById('inspector-toggle');
  const pointRow = document.getElementById('inspect-point');
  const fields = ['inspect-x', 'inspect-y'].map((id) => document.getElementById(id));
  const outlines = createOutlines(svg);
  const list = createViewList(document.getElementById('views'), pick);
  let point = null; // Where to look; stays when the pointer leaves, so that the list can be studied.
  let views = [];
  let picked = null;
  let asked = null; // When the question under way was asked.
  let stale = false; // Something has changed since.

  function setOn(on) {
    toggle.checked = on;
    canvas.dataset.inspecting = on;
    pointRow.hidden = !on;
    if (on) return ask();
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
    const now = performance.now();
    stale = asked !== null && now - asked < patience;
    if (!stale && send('inspect', point)) asked = now;
  }

  function answer(inspection) {
    asked = null;
    if (!toggle.checked) return;
    views = inspection.views;
    list.show(views);
    outline();
    if (stale) ask();
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
    const { width, height } = device.size();
    if (x >= 0 && y >= 0 && x < width && y < height) lookAt([round(x), round(y)]);
  }

  glass.addEventListener('pointermove', follow);
  glass.addEventListener('pointerdown', follow);
  canvas.addEventListener('picture', ask);
  toggle.addEventListener('change', () => setOn(toggle.checked));
  for (const field of fields) {
    field.addEventListener('input', () => {
      if (fields.every((each) => each.value !== '')) lookAt(fields.map((each) => each.valueAsNumber));
    });
  }

  return {
    answer,
    toggle: () => setOn(!toggle.checked),
    update: ({ screen }) => outlines.setViewBox(screen),
    /** The connection is gone, and with it the answer to what was asked. */
    forget: () => { asked = null; },
    /** It is there again. */
    ask,
  };
}
