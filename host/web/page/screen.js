// The screen: decodes the pictures off the main thread and draws each as soon as it is decoded.

import { readPicture } from './picture.js';

/**
 * Draws on `canvas` what `show(buffer)` is given. `acknowledge(number)` asks for the next picture: at once
 * when a picture finds the decoder idle, otherwise when the decoder gets to it. So one is being decoded and
 * one waits. `forget()` is due when the connection has been lost.
 *
 * After each drawing the canvas has the picture's number in `data-frame`, its touch in `data-touch`, and
 * dispatches `picture` with `{number, touch, time, drawn}`; `drawn` is when, on the clock of event timestamps.
 */
export function createScreen({ canvas, acknowledge }) {
  const context = canvas.getContext('2d', { alpha: false });
  let connection = 0;
  let decoding = false;
  let waiting = null;

  function show(buffer) {
    const picture = { ...readPicture(buffer), connection };
    if (decoding) waiting = picture;
    else decode(picture);
  }

  async function decode(picture) {
    decoding = true;
    if (picture.connection === connection) acknowledge(picture.number);
    try {
      draw(await createImageBitmap(picture.jpeg), picture);
    } catch (cause) {
      console.error(`Picture ${picture.number} cannot be shown:`, cause);
    }
    decoding = false;
    const next = waiting;
    waiting = null;
    if (next) decode(next);
  }

  function draw(bitmap, { number, touch, time }) {
    if (canvas.width !== bitmap.width) canvas.width = bitmap.width;
    if (canvas.height !== bitmap.height) canvas.height = bitmap.height;
    context.drawImage(bitmap, 0, 0);
    bitmap.close();
    canvas.dataset.frame = number;
    canvas.dataset.touch = touch;
    const detail = { number, touch, time, drawn: performance.now() };
    canvas.dispatchEvent(new CustomEvent('picture', { detail }));
  }

  /** What still waits is of no use, and must not be acknowledged on the next connection. */
  function forget() {
    connection += 1;
    waiting = null;
  }

  return { show, forget };
}
