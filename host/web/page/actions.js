// What buttons and keys do: each action by its name.

import { orientationAfter } from './orientation.js';

/**
 * Given `send`, `state()` (the device's last state or null), `angle()` (how it is turned on the page) and
 * `toggleInspector()`, returns the actions by name. They take nothing.
 */
export function createActions({ send, state, angle, toggleInspector }) {
  const turn = (quarters) => send('rotate', [orientationAfter(angle(), quarters)]);

  function lock() {
    if (state()?.locked) send('unlock');
    else send('button', ['LOCK']);
  }

  function keyboard() {
    if (canType(state())) send('keyboard', [state().keyboard ? 'hide' : 'show']);
  }

  function step() {
    if (state()?.pace === 0) send('step');
  }

  return {
    home: () => send('button', ['HOME']),
    lock,
    'turn-left': () => turn(-1),
    'turn-right': () => turn(1),
    keyboard,
    'activator-receive': () => send('activator', ['receive']),
    'activator-abort': () => send('activator', ['abort']),
    'activator-deactivate': () => send('activator', ['deactivate']),
    respring: () => send('respring'),
    step,
    inspector: toggleInspector,
  };
}

/** The keyboard belongs to the application in front. */
export function canType(state) {
  return Boolean(state) && state.frontmost !== null && !state.locked;
}
