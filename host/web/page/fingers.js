// Fingers: pointers on the glass become the device's touches.

import { roundToHundredths } from './numbers.js';

const mostFingers = 10;
const shortestMove = 8; // Milliseconds from one move to the next, but for the last before a frame.
const firstButton = 0;

const clamp = (value, most) => Math.min(Math.max(value, 0), most);

/**
 * Sends the pointers on `glass` as `touch` verbs. The glass reaches a little beyond the screen: what happens
 * out there happens at the screen's edge, as on a real one, so that a swipe can start there.
 *
 * `device` tells points and size; `onTouch(number, timeStamp)` hears of every touch that was sent.
 * `forget()` is due when the connection has been lost.
 */
export function createFingers({ glass, canvas, device, send, onTouch }) {
  const fingers = new Map(); // By pointer id: the finger's number and its last point.
  let count = 0;

  function place(event) {
    const { x, y } = device.pointAt(event.clientX, event.clientY);
    const { width, height } = device.size();
    return [clamp(x, width), clamp(y, height)].map(roundToHundredths);
  }

  function freeNumber() {
    const taken = new Set([...fingers.values()].map((each) => each.number));
    for (let number = 0; number < mostFingers; ++number) {
      if (!taken.has(number)) return number;
    }
    return null;
  }

  function touch(action, finger, timeStamp) {
    count += 1;
    const words = [action, ...finger.point, '--finger', finger.number];
    const sent = send('touch', words, { time: timeStamp, number: count });
    if (sent) onTouch(count, timeStamp);
    return sent;
  }

  function down(event) {
    if (event.button !== firstButton || fingers.has(event.pointerId)) return;
    const number = freeNumber();
    if (number === null) return;
    const finger = { number, point: place(event) };
    if (!touch('down', finger, event.timeStamp)) return;
    fingers.set(event.pointerId, finger);
    glass.setPointerCapture(event.pointerId);
    canvas.focus({ preventScroll: true, focusVisible: false });
  }

  function move(event) {
    const finger = fingers.get(event.pointerId);
    if (!finger) return;
    const point = place(event);
    if (point[0] === finger.point[0] && point[1] === finger.point[1]) return;
    finger.point = point;
    finger.movedAt = event.timeStamp;
    touch('move', finger, event.timeStamp);
  }

  // Where the browser tells of a move as it happens, that saves up to a frame of waiting for the next one.
  function moveEarly(event) {
    const finger = fingers.get(event.pointerId);
    if (finger && event.timeStamp - (finger.movedAt ?? 0) >= shortestMove) move(event);
  }

  function lift(action) {
    return (event) => {
      const finger = fingers.get(event.pointerId);
      if (!finger) return;
      fingers.delete(event.pointerId);
      if (action === 'up') finger.point = place(event);
      touch(action, finger, event.timeStamp);
    };
  }

  function cancelAll(event) {
    for (const finger of fingers.values()) touch('cancel', finger, event.timeStamp);
    fingers.clear();
  }

  /** The server has lifted them: pointers still down are no fingers any more. */
  function forget() {
    fingers.clear();
  }

  glass.addEventListener('pointerdown', down);
  glass.addEventListener('pointermove', move);
  glass.addEventListener('pointerrawupdate', moveEarly);
  glass.addEventListener('pointerup', lift('up'));
  glass.addEventListener('pointercancel', lift('cancel'));
  glass.addEventListener('lostpointercapture', lift('cancel'));
  window.addEventListener('blur', cancelAll);
  window.addEventListener('pagehide', cancelAll);
  document.addEventListener('visibilitychange', (event) => {
    if (document.visibilityState === 'hidden') cancelAll(event);
  });

  // What browsers do of themselves with a press: menus, selections, drags, and on phones a swipe back.
  for (const name of ['contextmenu', 'selectstart', 'dragstart']) {
    glass.addEventListener(name, (event) => event.preventDefault());
  }
  glass.addEventListener('touchstart', (event) => event.preventDefault(), { passive: false });

  return { forget };
}
