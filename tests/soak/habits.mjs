// What people do with the device, each a function of a Visitor.

import { setTimeout as pause } from 'node:timers/promises';

import { eventually } from '../web/support/eventually.mjs';

const [width, height, middle] = [320, 480, 240]; // Points, as all places.
const edges = { Right: width - 2, Left: 2 };
const keys = ['ArrowLeft', 'ArrowRight', 'k', 'a', 'b', 'd'];
const necessary = ['enabled', 'activatorOnly']; // Settings without which nothing is left to swipe at.
const fewMoves = 4;

/** Swipes in from where the switcher lies, and over its icons; returns the finger, which is still down. */
async function swipeIn({ device, page, dice }) {
  const finger = device.finger();
  await finger.down(edges[await page.locator('[data-key=swipeDirection] :checked').inputValue()], middle);
  await finger.move(width / 2, middle);
  for (let move = 0; move < fewMoves; ++move) await finger.move(dice.between(20, width - 20), middle);
  await pause(dice.between(100, 600));
  return finger;
}

/** Picks, goes home or locks, with another finger on the screen at times. */
export async function swipe(visitor) {
  const { device, dice } = visitor;
  const finger = await swipeIn(visitor);
  const other = dice.pick([null, null, device.finger()]);
  await other?.down(dice.between(0, width), dice.between(0, height));
  await finger.move(dice.between(20, width - 20), dice.pick([middle, middle, middle, height - 1, 1]));
  await finger.up();
  await other?.up();
}

async function reloadInMidSwipe(visitor) {
  await swipeIn(visitor);
  await visitor.reload();
}

/** On a locked device that takes two attempts. */
export async function launch(visitor) {
  await visitor.device.showTab('device');
  const app = `#apps li:nth-child(${visitor.dice.pick([1, 2, 3, 4, 5, 6, 7, 8])}) .app-launch`;
  await visitor.pressSeeing(({ locked }) => (locked === 'true' ? '#lock-button' : app));
}

async function goHome(visitor) {
  await visitor.pressSeeing(({ frontmost, locked }) => frontmost && locked === 'false' && '#home-button');
}

async function lockOrUnlock(visitor) {
  await visitor.pressSeeing(() => '#lock-button');
}

async function pressAKey({ page, dice }) {
  await page.locator('#screen').press(dice.pick(keys));
}

/** Changes any setting, swipes, and changes it back. */
async function tryASetting(visitor) {
  const { device, page, dice } = visitor;
  await device.showTab('settings');
  const cell = dice.pick(await page.locator('#pane-settings .row[data-cell]').all());
  const { key, value, others } = await dice.pick(await cell.locator('[data-key]').all()).evaluate((control) => {
    const { type, checked, min, max, dataset: { key } } = control;
    const choices = [...control.options ?? control.querySelectorAll('input')];
    const value = type === 'checkbox' ? checked : control.value ?? choices.find((each) => each.checked)?.value;
    const values = { checkbox: [false, true], color: ['#102030', '#a0b0c0'], range: [min, max] }[type]
      ?? choices.map((each) => each.value);
    return { key, value, others: values.filter((other) => other !== value) };
  });
  if (necessary.includes(key)) return;
  // What somebody else sets at the same moment shows what is here as it was before; then once more.
  const set = (wanted) => eventually(() => device.set(key, wanted));
  await set(dice.pick(others));
  await swipe(visitor);
  await set(value);
}

async function inspect({ device, page, dice }) {
  await device.showTab('inspect');
  await page.locator('#inspector-toggle').click();
  for (let move = 0; move < fewMoves; ++move) {
    const place = await device.place(dice.between(0, width), dice.between(0, height));
    await page.mouse.move(place.x, place.y);
    await pause(dice.between(100, 600));
  }
}

async function studyInSlowMotion(visitor) {
  const { device, page } = visitor;
  await device.showTab('inspect');
  const setPace = (pace) => eventually(async () => {
    await page.locator(`#pace [value="${pace}"]`).check();
    await page.locator(`#device[data-pace="${pace}"]`).waitFor({ timeout: 1000 });
  });
  await setPace(0.1);
  const finger = await swipeIn(visitor);
  await setPace(0);
  await page.locator('#step').click({ timeout: 1000 }).catch(() => {}); // Somebody else has let time go on.
  await finger.up();
  await setPace(1);
}

/** As a tab in the background that the browser stops. */
async function lookAway({ protocol, dice }) {
  await protocol.send('Page.setWebLifecycleState', { state: 'frozen' });
  await pause(dice.between(1000, 5000));
  await protocol.send('Page.setWebLifecycleState', { state: 'active' });
}

/** A page that does nothing for a while, with everything still arriving. */
async function beStuck(visitor) {
  await visitor.stall(visitor.dice.between(1000, 5000));
}

export async function respring({ device }) {
  await device.showTab('device');
  await device.press('respring');
}

const often = [swipe, swipe, swipe, launch, launch];
const atTimes = [reloadInMidSwipe, goHome, pressAKey, tryASetting, inspect];
const seldom = [lockOrUnlock, studyInSlowMotion, lookAway, beStuck];
export const usual = [...often, ...often, ...atTimes, ...atTimes, ...seldom];
