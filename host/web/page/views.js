// The list of the views at a point: innermost first, each with its class, frame and alpha.

import { make } from './elements.js';
import { roundToHundredths as round } from './numbers.js';

/**
 * Given the `list` to fill; `show(views)` takes views back to front. `onPick(index)` tells which line, counted
 * from the innermost, the pointer or the focus is on; null for none.
 */
export function createViewList({ list, onPick }) {
  const rows = [];
  let hovered = null;
  let focused = null;

  function createRow() {
    const [name, frame, alpha] = ['view-class', 'view-frame', 'view-alpha'].map((className) =>
      make('span', { className }));
    const button = make('button', { type: 'button', className: 'view' }, name, frame, alpha);
    const item = make('li', {}, button);
    const index = rows.length;
    const pick = () => onPick(hovered ?? focused);
    button.addEventListener('pointerenter', () => { hovered = index; pick(); });
    button.addEventListener('pointerleave', () => { hovered = null; pick(); });
    button.addEventListener('focus', () => { focused = index; pick(); });
    button.addEventListener('blur', () => { focused = null; pick(); });
    return { item, name, frame, alpha };
  }

  /** Lines are changed in place: neither hover nor focus is lost under a running animation. */
  function show(views) {
    while (rows.length < views.length) {
      rows.push(createRow());
      list.append(rows.at(-1).item);
    }
    rows.forEach((row, index) => {
      row.item.hidden = index >= views.length;
      if (row.item.hidden) return;
      const view = views[views.length - 1 - index];
      row.name.textContent = view.class;
      row.frame.textContent = frameText(view.frame);
      row.alpha.textContent = `alpha ${round(view.alpha)}`;
    });
    list.hidden = views.length === 0;
  }

  return { show };
}

function frameText([x, y, width, height]) {
  return `${round(x)}, ${round(y)} · ${round(width)} × ${round(height)}`;
}
