// What is the case, in words: what is in front, whether we are connected, and what could not be done.

const longestShown = 6000; // Milliseconds that a problem stays.
const mostToasts = 3;

export function createStatus() {
  const front = document.getElementById('front');
  const model = document.getElementById('model');
  const announcement = document.getElementById('announcement');
  const notice = document.getElementById('notice');
  const toasts = document.getElementById('toasts');

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
    document.body.dataset.connection = 'open';
    notice.textContent = '';
  }

  function closed(text) {
    document.body.dataset.connection = 'closed';
    notice.textContent = text;
    front.textContent = 'Not connected';
    announce(text);
  }

  function problem(text) {
    const toast = document.createElement('p');
    toast.className = 'toast';
    toast.textContent = text;
    toasts.append(toast);
    while (toasts.children.length > mostToasts) toasts.firstElementChild.remove();
    setTimeout(() => toast.remove(), longestShown);
  }

  return { update, connected, closed, problem };
}

function frontText({ locked, frontmost, apps }) {
  if (locked) return 'Locked';
  if (frontmost === null) return 'Home screen';
  const app = apps.find(({ bundle }) => bundle === frontmost);
  return `${app ? app.name : frontmost} is in front`;
}
