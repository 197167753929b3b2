// The buttons: whatever carries `data-action` performs it, and shows what the device makes of it.

import { canType } from './actions.js';

export function createControls(actions) {
  for (const button of document.querySelectorAll('[data-action]')) {
    button.addEventListener('click', () => actions[button.dataset.action]());
  }
  const lockLabels = document.querySelectorAll('[data-lock-label]');
  const lockButton = document.getElementById('lock-button');
  const keyboard = document.getElementById('keyboard-button');

  function update(state) {
    const word = state.locked ? 'Unlock' : 'Lock';
    for (const button of lockLabels) {
      button.querySelector('span').textContent = word;
      button.querySelector('use').setAttribute('href', `#icon-${word.toLowerCase()}`);
    }
    lockButton.setAttribute('aria-label', word);
    keyboard.disabled = !canType(state);
    keyboard.setAttribute('aria-pressed', state.keyboard);
  }

  return { update };
}
