// Looking closely: slow motion, the inspector, and the page without a pointer.

import assert from 'node:assert/strict';
import { beforeEach, describe, test } from 'node:test';

import { eventually } from './support/eventually.mjs';
import { useRig } from './support/rig.mjs';
import { isAt, switcherIn } from './support/switcher.mjs';

const frame = 1 / 60; // Seconds.

describe('Study', () => {
  const rig = useRig();

  beforeEach(() => rig.startOver('maps', 'music', 'mail'));

  test('while paused, an animation goes on by single frames', async () => {
    const moment = async () => {
      const description = await rig.client.describe('--presentation');
      return { time: description.time, bands: switcherIn(description).bands.map((band) => band.frame) };
    };
    const setPace = async (pace) => {
      await rig.page.locator(`#pace [value="${pace}"]`).check();
      await rig.device.says({ pace });
    };
    await rig.device.press('activator-receive');
    await rig.switcher(isAt('open'));
    await rig.device.showTab('inspect');
    await setPace(0);
    await rig.device.showTab('device');
    await rig.device.press('activator-abort');
    await rig.device.showTab('inspect');
    const before = await moment();
    for (let step = 1; step <= 2; ++step) {
      const picture = await rig.device.picture();
      await rig.device.press('step');
      await eventually(async () => assert.notEqual(await rig.device.picture(), picture));
      const { time, bands } = await moment();
      assert(Math.abs(time - before.time - step * frame) < 1e-6);
      assert.notDeepEqual(bands, before.bands);
    }
    await setPace(1);
    await rig.switcher(isAt('right'));
  });

  test('the inspector names and outlines the views under the pointer', async () => {
    await rig.device.press('activator-receive');
    const { icons: [icon] } = await rig.switcher(isAt('open'));
    await rig.device.showTab('inspect');
    await rig.page.locator('#inspector-toggle').check();
    const place = await rig.device.place(icon.x, icon.y);
    await rig.page.mouse.move(place.x, place.y);
    const views = rig.page.locator('#views > li:visible');
    await eventually(async () => {
      const names = await views.locator('.view-class').allTextContents();
      assert.deepEqual(names.slice(0, 4), ['UIImageView', 'CardDragger', 'SBLinenView', 'CardScroller']);
      assert.match(await views.first().textContent(), /42 × 42.*alpha 1/);
      const outline = await rig.page.locator('#outlines .strong').evaluate((shape) => shape.getBoundingClientRect());
      const corner = await rig.device.place(icon.x - 21, icon.y - 21);
      assert(Math.hypot(outline.x - corner.x, outline.y - corner.y) < 1, 'the outline is not around the icon');
    });
    await rig.page.locator('#inspector-toggle').uncheck();
    await views.first().waitFor({ state: 'hidden' });
  });

  test('everything can be reached and used by keyboard', async () => {
    const { page, device } = rig;
    async function press(key, selector) {
      const element = page.locator(selector);
      const hasFocus = () => element.evaluate((each) => each === document.activeElement);
      for (let presses = 0; !await hasFocus(); ++presses) {
        assert(presses < 100, `${selector} cannot be reached`);
        await page.keyboard.press('Tab');
      }
      await page.keyboard.press(key);
    }
    const presses = [
      ['Enter', '.app[data-bundle="com.example.maps"] .app-launch', { frontmost: 'com.example.maps' }],
      ['Enter', '#home-button', { frontmost: '' }],
      ['Enter', '#lock-button', { locked: true }],
      ['l', '#screen', { locked: false }],
      ['ArrowRight', '#screen', { orientation: 'LANDSCAPE_RIGHT' }],
      ['ArrowLeft', '#screen', { orientation: 'PORTRAIT' }],
    ];
    for (const [key, selector, outcome] of presses) {
      await press(key, selector);
      await device.says(outcome);
    }
    await press('ArrowRight', '#tab-device');
    await press('Space', '[data-key=enabled]');
    await page.locator('#respring-notice').waitFor();
    await press('Space', '[data-key=enabled]');
    await page.locator('#respring-notice').waitFor({ state: 'hidden' });
  });
});
