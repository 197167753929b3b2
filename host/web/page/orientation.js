// How a device is held: the angle it is turned by, clockwise in degrees, so that its content is upright.

const walk = ['PORTRAIT', 'LANDSCAPE_RIGHT', 'PORTRAIT_UPSIDE_DOWN', 'LANDSCAPE_LEFT'];
const quarterTurn = 90;

/** Null for a device lying flat, which stays turned as it was. */
export function angleOf(orientation) {
  const turns = walk.indexOf(orientation);
  return turns < 0 ? null : turns * quarterTurn;
}

/** The orientation after `quarters` more, clockwise; `angle` may be any multiple of a quarter turn. */
export function orientationAfter(angle, quarters) {
  const turns = Math.round(angle / quarterTurn) + quarters;
  return walk[((turns % walk.length) + walk.length) % walk.length];
}

/** The angle nearest to `from` that means the same as `to`, so that a turn takes the short way. */
export function nearestAngle(from, to) {
  return to + 360 * Math.round((from - to) / 360);
}
