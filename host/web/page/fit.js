// Fitting the device into the space there is: pure arithmetic, in CSS pixels unless it says otherwise.

// Sharp is better than filling the space; but where there is no frame, only if little of it is lost.
const leastShareFrameless = 0.9;
const smallestFactor = 0.05; // Where there is no space at all.

/**
 * Where the device goes.
 *
 * `space` {x, y, width, height} on the stage; `bezel` {side, top, bottom}; `size` of the screen {width,
 * height} in points; `scale` device pixels a point; `angle` in degrees; `density` physical pixels a CSS
 * pixel.
 *
 * Returns `perPoint` (CSS pixels a point), `sharp` (a whole multiple of the picture), `screen`, `bezel` and
 * `frame` sizes before the turn, `frameCentre` and `screenCentre` on the stage. All edges lie on physical
 * pixels.
 */
export function fitDevice({ space, bezel, size, scale, angle, density }) {
  const snap = (length) => Math.round(length * density) / density;
  const edges = { side: snap(bezel.side), top: snap(bezel.top), bottom: snap(bezel.bottom) };
  const around = { width: 2 * edges.side, height: edges.top + edges.bottom };
  const lying = Math.abs(angle % 180) === 90;
  const turned = ({ width, height }) => (lying ? { width: height, height: width } : { width, height });

  // Physical pixels for each of the picture's.
  const [most, chrome] = [turned(size), turned(around)];
  const fitting = density / scale *
    Math.min((space.width - chrome.width) / most.width, (space.height - chrome.height) / most.height);
  const whole = Math.floor(fitting);
  const framed = around.height > 0;
  const sharp = whole >= 1 && (framed || whole / fitting >= leastShareFrameless);
  const factor = sharp ? whole : Math.max(fitting, smallestFactor);

  const perPoint = factor * scale / density;
  const screen = { width: snap(size.width * perPoint), height: snap(size.height * perPoint) };
  const frame = { width: screen.width + around.width, height: screen.height + around.height };
  const box = turned(frame);
  const frameCentre = {
    x: snap(space.x + (space.width - box.width) / 2) + box.width / 2,
    y: snap(space.y + (space.height - box.height) / 2) + box.height / 2,
  };
  const aside = rotate({ x: 0, y: (edges.top - edges.bottom) / 2 }, angle);
  const screenCentre = { x: frameCentre.x + aside.x, y: frameCentre.y + aside.y };
  return { perPoint, sharp, screen, bezel: edges, frame, frameCentre, screenCentre };
}

/** `point` turned clockwise about the origin; quarter turns are exact. */
export function rotate({ x, y }, angle) {
  const radians = angle * Math.PI / 180;
  const [sine, cosine] = [Math.round(Math.sin(radians)), Math.round(Math.cos(radians))];
  return { x: x * cosine - y * sine, y: x * sine + y * cosine };
}
