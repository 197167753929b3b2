// A control that is dragged: what it says is sent on the way, and what the device says has to wait.

import { createThrottle } from './throttle.js';

const sendingInterval = 100; // Milliseconds between the values that are sent on the way.

/**
 * Given an `input`, `read()` for its value and `send(value)`: sends now and then while the input is being
 * dragged, and the last value when it is let go.
 *
 * `isHeld()` tells whether it is being dragged: then what the device says is older than what the person sees,
 * and must not be shown.
 */
export function createDrag({ input, read, send }) {
  const throttle = createThrottle({ pass: send, interval: sendingInterval });
  let isHeld = false;

  function letGo() {
    isHeld = false;
  }

  input.addEventListener('input', () => {
    isHeld = true;
    throttle.offer(read());
  });
  input.addEventListener('change', () => {
    letGo();
    throttle.settle();
  });
  input.addEventListener('blur', letGo);

  return { isHeld: () => isHeld };
}
