// The socket: opens it, opens it again whenever it has been lost, and hands on what comes down.

const shortestWait = 250; // Milliseconds.
const longestWait = 5000;
const waitWhenRefused = 2000;

const closeCode = { goingAway: 1001, refused: 1008, respringing: 1012, full: 1013 };

/** What to tell a person about a connection closed with this code and reason; null if it says nothing new. */
function noticeFor({ code, reason }) {
  switch (code) {
    case closeCode.respringing: return 'Respringing…';
    case closeCode.goingAway: return 'The device has been switched off. Waiting for it…';
    case closeCode.full: return 'Too many pages show this device. Waiting for a place…';
    case closeCode.refused: return `Closed: ${reason || 'no reason given'}. Reconnecting…`;
    default: return null;
  }
}

/**
 * Connects to `address` and stays connected.
 *
 * `handlers`: `onOpen()`, `onClosed(notice, rebooting)` after every loss and every failed attempt,
 * `onText(object)` for each JSON message and `onPicture(buffer)` for each binary one. `rebooting` says that
 * the device starts afresh. Returns `send(verb, args, extra)`, which drops the message and returns false
 * while there is no connection.
 */
export function openConnection(address, handlers) {
  let socket = null;
  let timer = 0;
  let wait = shortestWait;
  let notice = 'Reconnecting…';

  function open() {
    clearTimeout(timer);
    timer = 0;
    socket = new WebSocket(address);
    socket.binaryType = 'arraybuffer';
    socket.addEventListener('open', handlers.onOpen);
    socket.addEventListener('message', receive);
    socket.addEventListener('close', lose);
  }

  function receive({ data }) {
    if (typeof data !== 'string') {
      handlers.onPicture(data);
      return;
    }
    // A word from the device, and not the opening alone, is what shows that we are let in.
    wait = shortestWait;
    notice = 'Reconnecting…';
    handlers.onText(JSON.parse(data));
  }

  function lose(event) {
    socket = null;
    notice = noticeFor(event) ?? notice;
    if (event.code === closeCode.respringing) wait = shortestWait;
    const isRefused = event.code === closeCode.refused || event.code === closeCode.full;
    if (isRefused) wait = Math.max(wait, waitWhenRefused);
    timer = setTimeout(open, wait);
    wait = Math.min(wait * 2, longestWait);
    handlers.onClosed(notice, event.code === closeCode.respringing || event.code === closeCode.goingAway);
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
