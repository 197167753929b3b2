// The buttons: whatever carries `data-action` performs it, and shows what the device makes of it.

import { canType } from './actions.js';

/**
 * Given the `page` to look for buttons in, the `lockButton` and the `keyboardButton` that show how things are,
 * and the `actions` by name; `update(state)` takes the device's state.
 */
export function createControls({ page, lockButton, keyboardButton, actions }) {
  for (const button of page.querySelectorAll('[data-action]')) {
    button.addEventListener('click', () => actions[button.dataset.action]());
  }
  const lockLabels = page.querySelectorAll('[data-lock-label]');

  function update(state) {
    const word = state.locked ? 'Unlock' : 'Lock';
    for (const button of lockLabels) {
      button.querySelector('span').textContent = word;
      button.querySelector('use').setAttribute('href', `#icon-${word.toLowerCase()}`);
    }
    lockButton.setAttribute('aria-label', word);
    keyboardButton.disabled = !canType(state);
    keyboardButton.setAttribute('aria-pressed', state.keyboard);
  }

  return { update };
}
