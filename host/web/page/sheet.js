// On small windows the panel is a sheet that comes up from the bottom (or in from the side) and goes again.

const closingDrag = 40; // CSS pixels.

/**
 * Given the `page`, which says in `data-sheet` whether the sheet is open, the `toggle` and the `handle` that
 * open and close it, and the `panel` that is the sheet.
 */
export function createSheet({ page, toggle, handle, panel }) {
  const isOpen = () => page.dataset.sheet === 'open';

  function setOpen(open) {
    page.dataset.sheet = open ? 'open' : 'closed';
    toggle.setAttribute('aria-expanded', open);
  }

  function close() {
    if (!isOpen()) return;
    setOpen(false);
    toggle.focus();
  }

  toggle.addEventListener('click', () => setOpen(!isOpen()));
  handle.addEventListener('click', close);
  panel.addEventListener('keydown', (event) => {
    if (event.key === 'Escape') close();
  });

  let start = null;
  handle.addEventListener('pointerdown', (event) => {
    start = event;
    handle.setPointerCapture(event.pointerId);
  });
  handle.addEventListener('pointerup', (event) => {
    if (start && event.clientY - start.clientY > closingDrag) close();
    start = null;
  });
}
