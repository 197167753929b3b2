// Outlines of views over the screen, in the device's points, turned with it.

const namespace = 'http://www.w3.org/2000/svg';

/** Draws in `svg`, which lies over the screen. */
export function createOutlines({ svg }) {
  let shapes = [];

  /** `screen` is the screen's rectangle in points, [x, y, width, height]. */
  function setViewBox(screen) {
    svg.setAttribute('viewBox', screen.join(' '));
  }

  /** Outlines `views`, back to front; the one at index `strong` stands out. */
  function show(views, strong) {
    while (shapes.length < views.length) shapes.push(document.createElementNS(namespace, 'polygon'));
    shapes.length = views.length;
    views.forEach(({ corners }, index) => {
      shapes[index].setAttribute('points', corners.map((corner) => corner.join(',')).join(' '));
      shapes[index].classList.toggle('strong', index === strong);
    });
    // The strong one is drawn last, so that no other covers it.
    svg.replaceChildren(...shapes.filter((_, index) => index !== strong));
    if (shapes[strong]) svg.append(shapes[strong]);
  }

  function clear() {
    shapes = [];
    svg.replaceChildren();
  }

  return { setViewBox, show, clear };
}
