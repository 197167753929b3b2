// Fitting the device into the space there is: pure arithmetic, in CSS pixels unless it says otherwise.

// Sharp is better than filling the space; but where there is no bezel, only if little of it is lost.
const leastShareWithoutBezel = 0.9;
const smallestFactor = 0.05; // Where there is no space at all.

/**
 * Where the device goes.
 *
 * `space` {x, y, width, height} on the stage; `bezel` {side, top, bottom}, the body's width around the screen;
 * `size` of the screen {width, height} in points; `scale` device pixels a point; `angle` in degrees; `density`
 * physical pixels a CSS pixel.
 *
 * Returns `perPoint` (CSS pixels a point), `sharp` (a whole multiple of the picture), `screen`, `bezel` and
 * `body` sizes before the turn, `bodyCentre` and `screenCentre` on the stage. All edges lie on physical pixels.
 */
export function fitDevice({ space, bezel, size, scale, angle, density }) {
  const snap = (length) => Math.round(length * density) / density;
  const [side, top, bottom] = [bezel.side, bezel.top, bezel.bottom].map(snap);
  const bothBezels = { width: 2 * side, height: top + bottom };
  const isLying = Math.abs(angle % 180) === 90;
  const turned = ({ width, height }) => (isLying ? { width: height, height: width } : { width, height });

  // Physical pixels for each of the picture's.
  const [turnedSize, turnedBezels] = [turned(size), turned(bothBezels)];
  const fitting = density / scale * Math.min(
    (space.width - turnedBezels.width) / turnedSize.width,
    (space.height - turnedBezels.height) / turnedSize.height,
  );
  const whole = Math.floor(fitting);
  const hasBezel = bothBezels.height > 0;
  const sharp = whole >= 1 && (hasBezel || whole / fitting >= leastShareWithoutBezel);
  const factor = sharp ? whole : Math.max(fitting, smallestFactor);

  const perPoint = factor * scale / density;
  const screen = { width: snap(size.width * perPoint), height: snap(size.height * perPoint) };
  const body = { width: screen.width + bothBezels.width, height: screen.height + bothBezels.height };
  const box = turned(body);
  const bodyCentre = {
    x: snap(space.x + (space.width - box.width) / 2) + box.width / 2,
    y: snap(space.y + (space.height - box.height) / 2) + box.height / 2,
  };
  const aside = rotate({ x: 0, y: (top - bottom) / 2 }, angle);
  const screenCentre = { x: bodyCentre.x + aside.x, y: bodyCentre.y + aside.y };
  return { perPoint, sharp, screen, bezel: { side, top, bottom }, body, bodyCentre, screenCentre };
}

/** `point` turned clockwise about the origin; quarter turns are exact. */
export function rotate({ x, y }, angle) {
  const radians = angle * Math.PI / 180;
  const [sine, cosine] = [Math.round(Math.sin(radians)), Math.round(Math.cos(radians))];
  return { x: x * cosine - y * sine, y: x * sine + y * cosine };
}
