// Fingers, the mouse and the buttons on the page, and what the device makes of them.

import assert from 'node:assert/strict';
import { beforeEach, describe, test } from 'node:test';

import { useRig } from './support/rig.mjs';
import { isAt } from './support/switcher.mjs';

describe('Gestures', () => {
  const rig = useRig();

  // On offer are those that the mail lies over: weather, music and maps, from the left.
  beforeEach(() => rig.startOver('maps', 'music', 'weather', 'mail'));

  async function tap(x, y) {
    const finger = rig.device.finger();
    await finger.down(x, y);
    await finger.up();
  }

  test('the app under a finger that swipes in, rests and lifts opens, whatever a second finger does', async () => {
    const [finger, other] = [rig.device.finger(), rig.device.finger()];
    await finger.down(318, 240);
    await finger.move(250, 240);
    const { icons } = await rig.switcher(isAt('open'));
    assert.equal(icons.length, 3);
    await finger.move(icons[1].x, icons[1].y);
    await other.down(40, 60);
    await other.move(120, 60);
    await other.up();
    await rig.switcher(({ at, icons: [left, middle] }) => assert(at === 'open' && middle.width > left.width));
    await finger.up();
    await rig.device.inFront('music');
    await rig.switcher(isAt('right'));
  });

  for (const [where, y, outcome] of [['bottom', 479, { frontmost: '' }], ['top', 1, { locked: true }]]) {
    test(`a long drag to the ${where}`, async () => {
      const finger = rig.device.finger();
      await finger.down(318, 240);
      await finger.move(200, 240);
      await rig.switcher(isAt('open'));
      await finger.move(160, y);
      await finger.up();
      await rig.device.says(outcome);
      if (outcome.locked) await rig.device.press('lock');
      await rig.device.says({ locked: false });
    });
  }

  test('the mouse swipes in from the frame beside the screen', async () => {
    const [start, end] = [await rig.device.place(330, 240), await rig.device.place(30, 240)];
    await rig.page.mouse.move(start.x, start.y);
    await rig.page.mouse.down();
    await rig.page.mouse.move(end.x, end.y, { steps: 10 });
    await rig.switcher(({ at, icons: [left, middle] }) => assert(at === 'open' && left.width > middle.width));
    await rig.page.mouse.up();
    await rig.device.inFront('weather');
  });

  test('Activator opens the switcher for a tap, and closes it again', async () => {
    for (const action of ['abort', 'deactivate']) {
      await rig.device.press('activator-receive');
      await rig.switcher(isAt('open'));
      await rig.device.press(`activator-${action}`);
      await rig.switcher(isAt('right'));
      await rig.device.inFront('mail');
    }
    await rig.device.press('activator-receive');
    const { icons } = await rig.switcher(isAt('open'));
    await tap(icons[2].x, icons[2].y);
    await rig.device.inFront('maps');
  });

  test('a touch lands where it should however the device is turned', async () => {
    const turns = [['LANDSCAPE_RIGHT', 'calendar', 45], ['PORTRAIT_UPSIDE_DOWN', 'camera', 121],
      ['LANDSCAPE_LEFT', 'clock', 197], ['PORTRAIT', 'maps', 273]];
    for (const [orientation, app, x] of turns) {
      await rig.device.press('turn-right');
      await rig.device.says({ orientation });
      await rig.device.press('home');
      await rig.device.inFront('');
      await tap(x, 60);
      await rig.device.inFront(app);
    }
  });
});
