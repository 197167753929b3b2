// The page in a browser, with the device on it and real fingers.

import assert from 'node:assert/strict';

const screen = { width: 320, height: 480 }; // Points of the usual device.
const usualWindow = { viewport: { width: 1100, height: 760 }, hasTouch: true, reducedMotion: 'reduce' };
const movesOnTheWay = 8;

// Where a place on the upright screen, in shares of its size, is after the device has been turned.
const turned = {
  PORTRAIT: (x, y) => [x, y],
  LANDSCAPE_RIGHT: (x, y) => [1 - y, x],
  PORTRAIT_UPSIDE_DOWN: (x, y) => [1 - x, 1 - y],
  LANDSCAPE_LEFT: (x, y) => [y, 1 - x],
};

export const bundleOf = (name) => `com.example.${name}`;

export class DevicePage {
  #protocol;
  #fingers = new Map(); // Those that are down, and where, as the browser is told.
  #faults = [];

  /**
   * Opens the page at `address` in a window of its own; `window` is what a browser context takes, and
   * `prepare(page)` comes before the page loads.
   */
  static async open(browser, address, window = {}, prepare = () => {}) {
    const result = new DevicePage();
    const context = await browser.newContext({ ...usualWindow, ...window });
    result.page = await context.newPage();
    result.page.on('pageerror', (error) => result.#faults.push(error));
    result.#protocol = await context.newCDPSession(result.page);
    await prepare(result.page);
    await result.page.goto(address);
    await result.#connected();
    return result;
  }

  /** Fingers that are down are gone then. */
  async reload() {
    await this.page.reload();
    await this.#connected();
    if (this.#fingers.size === 0) return;
    this.#fingers.clear();
    await this.#protocol.send('Input.dispatchTouchEvent', { type: 'touchCancel', touchPoints: [] });
  }

  async #connected() {
    await this.page.locator('[data-connection=open] #screen[data-frame]').waitFor();
  }

  /** Nothing on the page may have gone wrong by now. */
  async close() {
    await this.page.context().close();
    assert.deepEqual(this.#faults, []);
  }

  /** Until the page has these facts about its device, such as {locked: true}. */
  async says(facts) {
    const attributes = Object.entries(facts).map(([name, value]) => `[data-${name}="${value}"]`);
    await this.page.locator(`#device${attributes.join('')}`).waitFor();
  }

  /** Until this application is in front; '' is the home screen. */
  async inFront(name) {
    await this.says({ frontmost: name && bundleOf(name) });
  }

  async press(action) {
    await this.page.locator(`.panel [data-action=${action}]:visible`).first().click();
  }

  async showTab(name) {
    await this.page.locator(`#tab-${name}`).click();
  }

  async launch(name) {
    await this.showTab('device');
    await this.page.locator(`#apps [data-bundle="${bundleOf(name)}"] .app-launch`).click();
    await this.inFront(name);
  }

  /** Changes a setting through its control; `key` is unique among the panes. */
  async set(key, value) {
    await this.showTab('settings');
    const control = this.page.locator(`#pane-settings [data-key="${key}"]`);
    if (typeof value === 'boolean') return control.setChecked(value);
    if (await control.getAttribute('role') === 'radiogroup') return control.locator(`[value=${value}]`).check();
    const isMenu = await control.evaluate((element) => element instanceof HTMLSelectElement);
    return isMenu ? control.selectOption(value) : control.fill(String(value));
  }

  /** What it shows of the screen, as a picture. */
  picture() {
    return this.page.evaluate(() => document.getElementById('screen').toDataURL());
  }

  /** The place in the window of a point of the upright device. */
  async place(x, y) {
    const { box, orientation } = await this.page.evaluate(() => ({
      box: document.getElementById('screen').getBoundingClientRect().toJSON(),
      orientation: document.getElementById('device').dataset.orientation,
    }));
    const [across, down] = turned[orientation](x / screen.width, y / screen.height);
    return { x: box.x + across * box.width, y: box.y + down * box.height };
  }

  finger() {
    return new Finger(this);
  }

  /** The touch of `finger` at `place`. A touchEnd is about that finger, anything else about all that are down. */
  async touch(type, finger, place) {
    const isEnd = type === 'touchEnd';
    const point = { ...place, id: finger.id };
    this.#fingers.set(finger, point);
    const touchPoints = isEnd ? [point] : [...this.#fingers.values()];
    if (isEnd) this.#fingers.delete(finger);
    await this.#protocol.send('Input.dispatchTouchEvent', { type, touchPoints });
  }
}

/** A finger, through the browser's own touch events. Points are those of the upright device. */
class Finger {
  static #made = 0;
  id = Finger.#made++;
  #at = [];

  constructor(devicePage) {
    this.devicePage = devicePage;
  }

  async #touch(type, ...point) {
    this.#at = point;
    await this.devicePage.touch(type, this, await this.devicePage.place(...point));
  }

  async down(x, y) {
    await this.#touch('touchStart', x, y);
  }

  async move(x, y) {
    const [from, to] = [await this.devicePage.place(...this.#at), await this.devicePage.place(x, y)];
    this.#at = [x, y];
    for (let step = 1; step <= movesOnTheWay; ++step) {
      const share = step / movesOnTheWay;
      const place = { x: from.x + (to.x - from.x) * share, y: from.y + (to.y - from.y) * share };
      await this.devicePage.touch('touchMove', this, place);
    }
  }

  async up() {
    await this.#touch('touchEnd', ...this.#at);
  }
}
