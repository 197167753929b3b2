// The settings pane: what it writes, and what the device makes of it.

import assert from 'node:assert/strict';
import { writeFileSync } from 'node:fs';
import { beforeEach, describe, test } from 'node:test';

import { eventually } from './support/eventually.mjs';
import { archivedColor, readPropertyList, valueXml } from './support/property_list.mjs';
import { useRig } from './support/rig.mjs';
import { isAt } from './support/switcher.mjs';

const domain = 'com.zantric.vistrel';

// For every key of the file a value that it does not have before.
const otherValues = {
  activatorOnly: true, appNames: true, blur: true, favouritesEnabled: true, iconFade: true, nameFade: true,
  upDownOpen: true,
  dim: true, enabled: true, holdDownAction: false, liquid: false, lsEnabled: false, swipeActionEnabled: false,
  animationStyle: 'Flat', appNamePosition: 'Top', background: 'Color', flatAnimationStyle: 'Split',
  iconAnimation: 'BounceUp', nameAnimation: 'Roll', swipeDirection: 'Left', swipeDownAction: 'None',
  swipeUpAction: 'Home',
  fav1: 'com.example.notes', fav2: 'com.example.maps', fav3: 'com.example.mail', fav4: 'com.example.clock',
  fav5: 'com.example.phone',
  iconSize: 0.5, visibleEdge: 33,
};
const otherColors = { topColor: '#12ab34', bottomColor: '#fedc01' };

describe('Settings', () => {
  const rig = useRig();
  const settings = () => readPropertyList(rig.springboard.settingsFile(domain));

  beforeEach(() => rig.startOver('maps', 'music', 'weather', 'mail'));

  async function swipeInFrom(x) {
    const finger = rig.device.finger();
    await finger.down(x, 240);
    await finger.move(160, 240);
    return { finger, ...await rig.switcher(isAt('open')) };
  }

  test('the edge moves to the other side, and the animation parts the screen in another way', async () => {
    const movesAside = ({ bands }) => bands.some(({ frame: [x] }) => x !== 0);
    await rig.device.set('swipeDirection', 'Left');
    await rig.switcher(isAt('left'));
    const pushed = await swipeInFrom(2);
    assert(!movesAside(pushed));
    await pushed.finger.up();
    await rig.switcher(isAt('left'));

    await rig.device.set('animationStyle', 'Flat');
    await eventually(() => assert.equal(settings().animationStyle, '<string>Flat</string>'));
    assert.equal(settings().swipeDirection, '<string>Left</string>');
    const { finger } = await swipeInFrom(2);
    await rig.switcher((switcher) => assert(movesAside(switcher)));
    await finger.up();
    await rig.device.set('swipeDirection', 'Right');
    await rig.switcher(isAt('right'));
  });

  test('the switcher hides in front of an excluded app, and only there', async () => {
    await rig.device.set('ALValue-com.example.camera', true);
    await rig.device.launch('camera');
    await rig.switcher(({ alpha }) => assert.equal(alpha, 0));
    const excluded = readPropertyList(rig.springboard.settingsFile(`${domain}-apps`));
    assert.deepEqual(excluded, { 'ALValue-com.example.camera': '<true/>' });
    await rig.device.launch('notes');
    await rig.switcher(({ alpha }) => assert.equal(alpha, 1));
  });

  test('favourites are on offer instead of recent apps', async () => {
    await rig.device.set('fav1', 'com.example.clock');
    await rig.device.set('fav3', 'com.example.notes');
    await rig.device.set('favouritesEnabled', true);
    for (const [index, app] of ['clock', 'notes'].entries()) {
      const { finger, icons } = await swipeInFrom(318);
      assert.equal(icons.length, 2);
      await finger.move(icons[index].x, icons[index].y);
      await finger.up();
      await rig.device.inFront(app);
      await rig.switcher(isAt('right'));
    }
  });

  test('the pane shows what others write', async () => {
    const dim = rig.page.locator('[data-key=dim]');
    assert(await dim.isChecked());
    writeFileSync(rig.springboard.settingsFile(domain), '<plist><dict><key>dim</key><false/></dict></plist>');
    rig.client.send('notify-post', `${domain}.prefsChanged`);
    await eventually(async () => assert(!await dim.isChecked()));
  });

  test('what takes a respring waits for one, and the page comes back by itself', async () => {
    const notice = rig.page.locator('#respring-notice');
    await rig.device.set('enabled', false);
    await notice.waitFor();
    await rig.switcher((switcher) => assert(switcher));
    await notice.getByRole('button').click();
    assert.equal((await rig.client.closed).code, 1012);
    rig.client = await rig.connect();
    await rig.device.inFront('');
    await notice.waitFor({ state: 'hidden' });
    assert(!await rig.page.locator('[data-key=enabled]').isChecked());
    await rig.switcher((switcher) => assert.equal(switcher, null));
  });

  test('every control writes what a hand-written file would hold', async () => {
    const controls = rig.page.locator(`#pane-settings [data-domain="${domain}"]`);
    const keys = await controls.evaluateAll((all) => all.map((control) => control.dataset.key));
    assert.deepEqual(keys.sort(), Object.keys({ ...otherValues, ...otherColors }).sort());
    for (const [key, value] of Object.entries({ ...otherValues, ...otherColors })) await rig.device.set(key, value);
    const expected = Object.entries(otherValues).map(([key, value]) => [key, valueXml(value)]);
    await eventually(() => {
      const { topColor, bottomColor, ...others } = settings();
      assert.deepEqual(others, Object.fromEntries(expected));
      assert.deepEqual({ topColor: archivedColor(topColor), bottomColor: archivedColor(bottomColor) }, otherColors);
    });
    await rig.device.set('fav5', '');
    await eventually(() => assert(!('fav5' in settings())));
  });
});
