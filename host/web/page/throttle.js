// Slows down a stream of values: the first at once, then at most one in an interval, never losing the last.

/**
 * Given `pass(value)` and an `interval` in milliseconds: `offer(value)` passes on as often as allowed;
 * `settle()` passes on at once what still waits.
 */
export function createThrottle({ pass, interval }) {
  let timer = 0;
  let isWaiting = false;
  let last; // The value that waits, which may itself be anything.

  function passOn(value) {
    clearTimeout(timer);
    timer = setTimeout(open, interval);
    pass(value);
  }

  function open() {
    timer = 0;
    settle();
  }

  function offer(value) {
    if (timer) {
      isWaiting = true;
      last = value;
    } else {
      passOn(value);
    }
  }

  function settle() {
    if (!isWaiting) return;
    isWaiting = false;
    passOn(last);
  }

  return { offer, settle };
}
