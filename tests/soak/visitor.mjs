// Somebody with a browser: comes to the page, does as people do, and goes in one way or another.

import { setTimeout as pause } from 'node:timers/promises';

import { DevicePage } from '../web/support/device_page.mjs';

const patience = 20_000; // Milliseconds from a press to its picture, coming back after a respring included.
const interval = 50;
const slownesses = [1, 1, 1, 4]; // How many times slower than this machine theirs may be.
const [shortestStay, longestStay] = [6_000, 20_000]; // Milliseconds.
const [shortestThought, longestThought] = [200, 1_500]; // Between two things that they do.
const centre = [160, 240]; // Of the screen, in points.
const rude = 0.3; // The share of those who go with a finger down, and of those whose page is killed.

/** Waits for `done`, and says in the error, if there is one, what was being done. */
async function doing(what, done) {
  return done.catch((cause) => { throw new Error(`${what}: ${cause.message}`, { cause }); });
}

export class Visitor {
  /** `tally` counts, for all of them, their `visits` and the `pictures` that they have received. */
  static async arrive({ browser, springboard }, dice, tally) {
    const visitor = new Visitor();
    Object.assign(visitor, { dice, tally });
    const opening = DevicePage.open(browser, springboard.address, {}, async (page) => {
      visitor.page = page;
      visitor.protocol = await page.context().newCDPSession(page);
      await page.addInitScript(() => {
        window.pictures = 0;
        addEventListener('picture', () => { window.pictures += 1; }, true);
      });
      page.on('console', (line) => { visitor.complaint ??= line.text().match(/^Picture .*/)?.[0]; });
    });
    visitor.device = await doing('opening the page', opening);
    await visitor.protocol.send('Emulation.setCPUThrottlingRate', { rate: dice.pick(slownesses) });
    tally.visits += 1;
    return visitor;
  }

  /** Does what is first in `plans`, taking it from there, then any of `usual`, until it is time to go or to close. */
  async stay(plans, usual, closing) {
    const going = Math.min(performance.now() + this.dice.between(shortestStay, longestStay), closing);
    while (plans.length || performance.now() < going) {
      const habit = plans.shift() ?? this.dice.pick(usual);
      await doing(habit.name, habit(this));
      await pause(this.dice.between(shortestThought, longestThought));
    }
  }

  /**
   * Presses what `find(facts)` names, a selector or nothing, given what the page says about its device. That
   * changes the screen, which has to be seen here soon.
   */
  async pressSeeing(find) {
    // At one moment: a picture of any later change, somebody else's too, is one more than these.
    const look = () => this.page.locator('#device').evaluate(({ dataset }) =>
      ({ facts: { ...dataset }, pictures: window.pictures }));
    const { facts, pictures } = await look();
    const selector = find(facts);
    if (!selector) return;
    await this.page.locator(selector).click();
    const seen = (before) => window.pictures > before;
    await this.page.waitForFunction(seen, pictures, { timeout: patience, polling: interval }).catch(async () => {
      const [before, now] = [facts, (await look()).facts].map((each) => JSON.stringify(each));
      throw new Error(`no picture within ${patience} ms of pressing ${selector}; before: ${before}, now: ${now}`);
    });
  }

  /** Stops the page for so long, by a dialog that nobody closes before. */
  async stall(milliseconds) {
    this.page.once('dialog', (dialog) => pause(milliseconds).then(() => dialog.dismiss()));
    await this.page.evaluate(() => alert());
  }

  async reload() {
    await this.#countPictures();
    await this.device.reload();
  }

  async leave() {
    if (this.dice.between(0, 1) < rude) await this.device.finger().down(...centre);
    await this.#countPictures();
    if (this.dice.between(0, 1) < rude) await this.#crash();
    await this.device.close();
    if (this.complaint) throw new Error(this.complaint);
  }

  async #countPictures() {
    this.tally.pictures += await this.page.evaluate(() => window.pictures);
  }

  async #crash() {
    const crashed = new Promise((resolve) => { this.page.once('crash', resolve); });
    this.protocol.send('Page.crash').catch(() => {}); // Nobody is left to answer.
    await crashed;
  }
}
