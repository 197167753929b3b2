// On small windows the panel is a sheet that comes up from the bottom (or in from the side) and goes again.

const closingDrag = 40; // CSS pixels.

export function createSheet({ toggle, handle, panel }) {
  const isOpen = () => document.body.dataset.sheet === 'open';

  function setOpen(open) {
    document.body.dataset.sheet = open ? 'open' : 'closed';
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
