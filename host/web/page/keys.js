// Keys while the device's screen has the focus.

const actionOfKey = {
  h: 'home',
  l: 'lock',
  k: 'keyboard',
  a: 'activator-receive',
  b: 'activator-abort',
  d: 'activator-deactivate',
  i: 'inspector',
  '.': 'step',
  ArrowLeft: 'turn-left',
  ArrowRight: 'turn-right',
};

/** Given the `canvas` that has to have the focus, and the `actions` by name. */
export function createKeys({ canvas, actions }) {
  canvas.addEventListener('keydown', (event) => {
    if (event.ctrlKey || event.metaKey || event.altKey) return;
    const key = event.key.length === 1 ? event.key.toLowerCase() : event.key;
    const action = actionOfKey[key];
    if (!action) return;
    event.preventDefault();
    // Held down, only the next frame may come again and again.
    if (!event.repeat || action === 'step') actions[action]();
  });
}
