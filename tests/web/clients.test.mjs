// Several clients of one device, those that leave and those that do not keep up included.

import assert from 'node:assert/strict';
import { beforeEach, describe, test } from 'node:test';

import { eventually } from './support/eventually.mjs';
import { useRig } from './support/rig.mjs';

describe('Clients', () => {
  const rig = useRig();

  beforeEach(() => rig.startOver('maps', 'music', 'mail'));

  /** How far the knob of the lock screen has been slid, in points. */
  async function slid() {
    const views = (await rig.client.describe()).windows;
    for (const view of views) views.push(...view.subviews);
    return views.find((view) => view.class === 'SBSlideToUnlockKnobView').frame[0];
  }

  test('two pages see and use the same device', async () => {
    const other = await rig.openPage();
    const before = await other.picture();
    await rig.device.launch('notes');
    await other.inFront('notes');
    await eventually(async () => {
      const picture = await rig.device.picture();
      assert(picture === await other.picture() && picture !== before);
    });
    await other.press('home');
    await rig.device.inFront('');
  });

  // Each puts a finger on the knob and slides it, and returns how to go.
  const goings = {
    'page that is reloaded': async () => {
      const other = await rig.openPage();
      const finger = other.finger();
      await finger.down(57, 432);
      await finger.move(150, 432);
      return () => other.reload();
    },
    'client that vanishes': async () => {
      const other = await rig.connect();
      other.send('touch', 'down', 57, 432);
      other.send('touch', 'move', 150, 432);
      return () => other.socket.destroy();
    },
  };
  for (const [who, slide] of Object.entries(goings)) {
    test(`a ${who} takes its finger along, and nothing else`, async () => {
      await rig.device.press('lock');
      await rig.device.says({ locked: true });
      const [{ device }, rest] = [await rig.client.describe(), await slid()];
      const go = await slide();
      await eventually(async () => assert(await slid() > 50));
      await go();
      await eventually(async () => assert.equal(await slid(), rest));
      assert.deepEqual((await rig.client.describe()).device, device);
      await rig.device.press('lock');
    });
  }

  test('a client that stops reading delays nobody', async () => {
    const stalled = await rig.connect();
    stalled.socket.pause();
    const finger = rig.device.finger();
    await finger.down(318, 240);
    await finger.move(50, 240);
    await rig.switcher(({ at, icons: [first, second] }) => assert(at === 'open' && first.width > second.width));
    await finger.up();
    await rig.device.inFront('music');
    stalled.socket.resume();
    await stalled.describe();
    assert.equal(stalled.pictures, 1, 'pictures that it never answered');
  });

  test('a client that asks and does not read is dropped', async () => {
    const stalled = await rig.connect();
    stalled.socket.pause();
    for (let count = 0; count < 2000; ++count) stalled.send('describe-all');
    await rig.device.launch('notes');
    await eventually(() => {
      stalled.send('describe-all'); // Without reading, only writing tells that the other end has gone.
      assert(stalled.socket.destroyed);
    });
    assert.equal((await stalled.closed).code, 'none');
  });
});
