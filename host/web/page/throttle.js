// Slows down a stream of values: the first at once, then at most one in an interval, never losing the last.

/** `offer(value)` passes on as often as allowed; `settle()` passes on at once what still waits. */
export function createThrottle(pass, interval) {
  let timer = 0;
  let waiting = []; // The value, if any: which may itself be anything.

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
    if (timer) waiting = [value];
    else passOn(value);
  }

  function settle() {
    const values = waiting;
    waiting = [];
    values.forEach(passOn);
  }

  return { offer, settle };
}
