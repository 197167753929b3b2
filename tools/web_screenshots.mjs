#!/usr/bin/env node
// Takes the pictures of the page that the documentation shows: docs/page-desktop.webp and docs/page-phone.webp.
//
//     SPRINGBOARD=... STAGED_ROOT=... node tools/web_screenshots.mjs

import { writeFileSync } from 'node:fs';

import { Rig } from '../tests/web/support/rig.mjs';
import { isAt } from '../tests/web/support/switcher.mjs';

const apps = ['photos', 'clock', 'weather', 'maps', 'music', 'mail'];
const chosen = 1; // The icon under the finger, from the left.
const windows = {
  desktop: { viewport: { width: 1440, height: 900 } },
  phone: { viewport: { width: 390, height: 844 }, deviceScaleFactor: 2, isMobile: true },
};

/** The same picture as WebP, in base64. To be run in a page. */
async function encode(png) {
  const bitmap = await createImageBitmap(await (await fetch(`data:image/png;base64,${png}`)).blob());
  const canvas = new OffscreenCanvas(bitmap.width, bitmap.height);
  canvas.getContext('2d').drawImage(bitmap, 0, 0);
  const blob = await canvas.convertToBlob({ type: 'image/webp', quality: 0.9 });
  return btoa(Array.from(new Uint8Array(await blob.arrayBuffer()), (byte) => String.fromCharCode(byte)).join(''));
}

for (const [name, window] of Object.entries(windows)) {
  const rig = new Rig();
  try {
    await rig.start([], window);
    await rig.runOnly(...apps);
    await rig.atRest();
    const finger = rig.device.finger();
    await finger.down(318, 240);
    await finger.move(250, 240);
    const { icons } = await rig.switcher(isAt('open'));
    await finger.move(icons[chosen].x, icons[chosen].y);
    await rig.atRest();
    const png = (await rig.page.screenshot()).toString('base64');
    const blank = await rig.browser.newPage();
    writeFileSync(new URL(`../docs/page-${name}.webp`, import.meta.url), await blank.evaluate(encode, png), 'base64');
  } finally {
    await rig.stop();
  }
}
