// What is the case, in words: what is in front, whether we are connected, and what could not be done.

import { make } from './elements.js';

const problemDuration = 6000; // Milliseconds that a problem stays.
const mostProblems = 3;

/**
 * Given the elements to fill; `update(state)` takes the device's state, `connected()` and `closed(notice)`
 * are for every time that the connection comes and goes, and `problem(text)` shows a problem for a while.
 */
export function createStatus({ page, front, model, announcement, notice, toasts }) {
  function announce(text) {
    if (announcement.textContent !== text) announcement.textContent = text;
  }

  function update(state) {
    const text = frontText(state);
    front.textContent = text;
    model.textContent = state.model;
    announce(text);
  }

  function connected() {
    page.dataset.connection = 'open';
    notice.textContent = '';
  }

  function closed(text) {
    page.dataset.connection = 'closed';
    notice.textContent = text;
    front.textContent = 'Not connected';
    announce(text);
  }

  function problem(text) {
    const toast = make('p', { className: 'toast', textContent: text });
    toasts.append(toast);
    while (toasts.children.length > mostProblems) toasts.firstElementChild.remove();
    setTimeout(() => toast.remove(), problemDuration);
  }

  return { update, connected, closed, problem };
}

function frontText({ locked, frontmost, apps }) {
  if (locked) return 'Locked';
  if (frontmost === null) return 'Home screen';
  const app = apps.find(({ bundle }) => bundle === frontmost);
  return `${app ? app.name : frontmost} is in front`;
}
