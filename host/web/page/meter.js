// Measures: pictures a second, and how long a touch takes to show.

const span = 1000; // Milliseconds that are looked back on.
const refreshInterval = 250; // Milliseconds from one showing of the figures to the next.
// A touch that changes nothing is confirmed by whatever picture happens to come next: that is no delay.
const longestDelay = 1000;

/**
 * Given the `canvas` that tells of pictures and the outputs `rate` and `latency`; `touch(number, timeStamp)`
 * is due for every touch that is sent.
 */
export function createMeter({ canvas, rate, latency }) {
  const touched = new Map(); // Timestamps by the touch's number, oldest first.
  let drawn = [];
  let delays = []; // {at, delay}.
  let lastTouch = 0;
  let timer = 0;

  canvas.addEventListener('picture', ({ detail }) => {
    drawn.push(detail.drawn);
    if (detail.touch !== lastTouch) {
      lastTouch = detail.touch;
      const delay = detail.drawn - touched.get(detail.touch);
      if (delay < longestDelay) delays.push({ at: detail.drawn, delay });
      for (const number of touched.keys()) {
        if (number > detail.touch) break;
        touched.delete(number);
      }
    }
    if (!timer) timer = setTimeout(show, refreshInterval);
  });

  function show() {
    const since = performance.now() - span;
    drawn = drawn.filter((at) => at > since);
    delays = delays.filter(({ at }) => at > since);
    rate.value = drawn.length;
    // The last known delay stays: it is looked at after the swipe, not during it.
    if (delays.length) latency.value = median(delays.map(({ delay }) => delay)).toFixed(1);
    timer = drawn.length ? setTimeout(show, refreshInterval) : 0;
  }

  function touch(number, timeStamp) {
    touched.set(number, timeStamp);
  }

  return { touch };
}

function median(values) {
  const sorted = [...values].sort((one, other) => one - other);
  const middle = sorted.length >> 1;
  return sorted.length % 2 ? sorted[middle] : (sorted[middle - 1] + sorted[middle]) / 2;
}
