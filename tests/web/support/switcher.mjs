// The switcher, as a description of the device has it.

import assert from 'node:assert/strict';

const edges = { '305': 'right', '-305': 'left', 0: 'open' };

export function switcherIn({ windows }) {
  const window = windows.find((each) => each.class === 'CardScroller');
  if (!window) return null;
  const strip = window.subviews.find((view) => view.class === 'CardDragger');
  return {
    alpha: window.alpha,
    at: edges[window.frame[0]],
    icons: strip.subviews.map(({ frame: [x, y, width, height] }) => ({
      x: window.frame[0] + strip.frame[0] + x + width / 2,
      y: window.frame[1] + strip.frame[1] + y + height / 2,
      width,
    })),
    bands: window.subviews.filter((view) => view.class === 'UIImageView'),
  };
}

/** Checks that a switcher is there: at the 'right' or 'left' edge, or 'open'. */
export const isAt = (place) => (switcher) => assert.equal(switcher?.at, place);
