// What buttons and keys do: each action by its name.

import { orientationAfter } from './orientation.js';

/**
 * `state()` is the device's last state or null, `angle()` how it is turned on the page. Actions take nothing.
 */
export function createActions({ send, state, angle, toggleInspector }) {
  const turn = (quarters) => send('rotate', [orientationAfter(angle(), quarters)]);

  return {
    home: () => send('button', ['HOME']),
    lock: () => (state()?.locked ? send('unlock') : send('button', ['LOCK'])),
    'turn-left': () => turn(-1),
    'turn-right': () => turn(1),
    keyboard: () => canType(state()) && send('keyboard', [state().keyboard ? 'hide' : 'show']),
    'activator-receive': () => send('activator', ['receive']),
    'activator-abort': () => send('activator', ['abort']),
    'activator-deactivate': () => send('activator', ['deactivate']),
    respring: () => send('respring'),
    step: () => state()?.pace === 0 && send('step'),
    inspector: toggleInspector,
  };
}

/** The keyboard belongs to the application in front. */
export function canType(state) {
  return Boolean(state) && state.frontmost !== null && !state.locked;
}
