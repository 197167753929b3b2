// The socket: opens it, opens it again whenever it has been lost, and hands on what comes down.

const shortestWait = 250; // Milliseconds.
const longestWait = 5000;
const waitWhenRefused = 2000;
const usualNotice = 'Reconnecting…';

// By close code: what to tell a person about it, and how long to wait at least before the next attempt. Any
// other code says nothing new.
const closings = {
  1001: { notice: () => 'The device has been switched off. Waiting for it…', leastWait: shortestWait },
  1008: {
    notice: (reason) => `Closed: ${reason || 'no reason given'}. Reconnecting…`,
    leastWait: waitWhenRefused,
  },
  1012: { notice: () => 'Respringing…', leastWait: shortestWait },
  1013: { notice: () => 'Too many pages show this device. Waiting for a place…', leastWait: waitWhenRefused },
};

/**
 * Connects to `address` and stays connected.
 *
 * `onConnected()` comes before the first message of every connection, `onClosed(notice)` after every loss and
 * every failed attempt, `onText(object)` for each JSON message and `onPicture(buffer)` for each binary one.
 * Returns `send(verb, args, extra)`, which drops the message and returns false while there is no connection.
 */
export function openConnection({ address, onConnected, onClosed, onText, onPicture }) {
  let socket = null;
  let timer = 0;
  let wait = shortestWait;
  let notice = usualNotice;
  let isConnected = false;

  function open() {
    clearTimeout(timer);
    timer = 0;
    socket = new WebSocket(address);
    socket.binaryType = 'arraybuffer';
    socket.addEventListener('message', receive);
    socket.addEventListener('close', lose);
  }

  function receive({ data }) {
    if (!isConnected) beConnected();
    if (typeof data === 'string') onText(JSON.parse(data));
    else onPicture(data);
  }

  /** A message from the device, and not the opening alone, is what shows that we are let in. */
  function beConnected() {
    isConnected = true;
    wait = shortestWait;
    notice = usualNotice;
    onConnected();
  }

  function lose({ code, reason }) {
    socket = null;
    isConnected = false;
    const closing = closings[code];
    if (closing) {
      notice = closing.notice(reason);
      wait = Math.max(wait, closing.leastWait);
    }
    timer = setTimeout(open, wait);
    wait = Math.min(wait * 2, longestWait);
    onClosed(notice);
  }

  function openNow() {
    if (!timer || document.visibilityState !== 'visible') return;
    wait = shortestWait;
    open();
  }

  document.addEventListener('visibilitychange', openNow);
  window.addEventListener('online', openNow);
  window.addEventListener('pageshow', openNow);
  open();

  return function send(verb, args = [], extra = {}) {
    if (socket?.readyState !== WebSocket.OPEN) return false;
    socket.send(JSON.stringify({ verb, arguments: args, ...extra }));
    return true;
  };
}
