// The device on the page: its place, size and turn, and which of its points lies under a pointer.

import { fitDevice, rotate } from './fit.js';
import { angleOf, nearestAngle } from './orientation.js';

const turning = { duration: 320, easing: 'cubic-bezier(0.3, 0.1, 0.2, 1)' };
const calm = matchMedia('(prefers-reduced-motion: reduce)');

/**
 * Lays out the device's `body`, with `glass` and `canvas` in it, on `stage`. `update(state)` takes the device's
 * state; `pointAt(clientX, clientY)`, `size()` and `angle()` tell how the device lies.
 */
export function createDevice({ stage, body, glass, canvas }) {
  let size = { width: 320, height: 480 };
  let scale = 2;
  let angle = 0;
  let fit = null;

  /** The content box of the stage, and how wide the bezel is on each side: both are up to the style sheet. */
  function measure() {
    const stageStyle = getComputedStyle(stage);
    const bodyStyle = getComputedStyle(body);
    const [left, top] = [parseFloat(stageStyle.paddingLeft), parseFloat(stageStyle.paddingTop)];
    const space = {
      x: left,
      y: top,
      width: stage.clientWidth - left - parseFloat(stageStyle.paddingRight),
      height: stage.clientHeight - top - parseFloat(stageStyle.paddingBottom),
    };
    const bezel = {
      side: parseFloat(bodyStyle.paddingLeft),
      top: parseFloat(bodyStyle.paddingTop),
      bottom: parseFloat(bodyStyle.paddingBottom),
    };
    return { space, bezel, size, scale, angle, density: window.devicePixelRatio };
  }

  function layOut() {
    fit = fitDevice(measure());
    setSize(body, fit.body);
    setSize(glass, fit.screen);
    glass.style.left = `${fit.bezel.side}px`;
    glass.style.top = `${fit.bezel.top}px`;
    body.style.transform = transform(fit.body, fit.bodyCentre, angle);
    canvas.style.imageRendering = fit.sharp ? 'pixelated' : 'auto';
  }

  /** Turns to `next`, and is seen to turn unless the person wants calm. */
  function turnTo(next) {
    const before = { angle, ...fit };
    angle = next;
    layOut();
    if (calm.matches) return;
    const zoom = before.perPoint / fit.perPoint;
    const from = `${transform(fit.body, before.bodyCentre, before.angle)} scale(${zoom})`;
    const to = `${transform(fit.body, fit.bodyCentre, angle)} scale(1)`;
    body.animate([{ transform: from }, { transform: to }], turning);
  }

  function update(state) {
    body.dataset.model = state.model;
    body.dataset.orientation = state.orientation;
    body.dataset.locked = state.locked;
    body.dataset.frontmost = state.frontmost ?? '';
    body.dataset.keyboard = state.keyboard;
    body.dataset.pace = state.pace;
    const [, , width, height] = state.screen;
    if (width !== size.width || height !== size.height || scale !== state.scale) {
      size = { width, height };
      scale = state.scale;
      layOut();
    }
    const wanted = angleOf(state.orientation);
    if (wanted !== null && nearestAngle(angle, wanted) !== angle) turnTo(nearestAngle(angle, wanted));
  }

  /** The device's point, in portrait, at a place in the window: beyond the screen too. */
  function pointAt(clientX, clientY) {
    const corner = stage.getBoundingClientRect();
    const { x, y } = rotate({
      x: clientX - corner.left - fit.screenCentre.x,
      y: clientY - corner.top - fit.screenCentre.y,
    }, -angle);
    return { x: x / fit.perPoint + size.width / 2, y: y / fit.perPoint + size.height / 2 };
  }

  new ResizeObserver(layOut).observe(stage);
  window.addEventListener('resize', layOut);
  layOut();
  return { update, pointAt, size: () => size, angle: () => angle };
}

function transform(size, centre, angle) {
  return `translate(${centre.x - size.width / 2}px, ${centre.y - size.height / 2}px) rotate(${angle}deg)`;
}

function setSize(element, { width, height }) {
  element.style.width = `${width}px`;
  element.style.height = `${height}px`;
}
