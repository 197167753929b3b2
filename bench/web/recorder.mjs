// Measures, in the page, when touches happen and when they are to be seen.

/** To be run in a page before its scripts, and after those that replace WebSocket. */
export function record() {
  const times = new Map(); // Of touches on the way, by number: when they happened.
  const startRecord = () => ({ since: performance.now(), drawn: 0, shown: 0, toDrawn: [], toFrame: [] });
  let record = startRecord();

  /** What happened since the last call: pictures drawn, frames that showed a new one, delays in milliseconds. */
  window.takeRecord = () => {
    const taken = { ...record, seconds: (performance.now() - record.since) / 1000 };
    record = startRecord();
    return taken;
  };

  const send = WebSocket.prototype.send;
  WebSocket.prototype.send = function sendTimed(text) {
    const message = JSON.parse(text);
    if (message.verb === 'touch') times.set(message.number, message.time);
    send.call(this, text);
  };

  let seen = []; // When the touches happened that the next frame will be the first to show.
  let frameIsDue = false;
  function showFrame() {
    frameIsDue = false;
    const now = performance.now();
    record.shown += 1;
    record.toFrame.push(...seen.splice(0).map((time) => now - time));
  }

  addEventListener('DOMContentLoaded', () => {
    document.getElementById('screen').addEventListener('picture', ({ detail }) => {
      record.drawn += 1;
      for (const [number, time] of times) {
        if (number > detail.touch) break;
        times.delete(number);
        record.toDrawn.push(detail.drawn - time);
        seen.push(time);
      }
      if (!frameIsDue) requestAnimationFrame(showFrame);
      frameIsDue = true;
    });
  });
}
