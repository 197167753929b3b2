#!/usr/bin/env node
// How well the page follows a finger: pictures a second, and milliseconds from a touch to the picture that shows
// it, while a finger sweeps over the icons of the open switcher; and beside it the same page without a server.
//
//     SPRINGBOARD=... STAGED_ROOT=... node bench/web/swipe.mjs [SECONDS [ROUNDS]]

import { setTimeout as pause } from 'node:timers/promises';

import { Rig } from '../../tests/web/support/rig.mjs';
import { isAt } from '../../tests/web/support/switcher.mjs';
import { record } from './recorder.mjs';
import { standIn } from './stand_in.mjs';

const [wantedSeconds = 5, rounds = 5] = process.argv.slice(2).map(Number);
const window = { viewport: { width: 1440, height: 900 } };
const apps = ['maps', 'music', 'weather', 'clock', 'notes', 'mail'];
const movesPerSecond = 60;
const sweep = { from: 20, to: 300, y: 240, period: 1 }; // Points; seconds there and back.
const warmUp = 1; // Seconds.
const pictureCount = 24; // For the page without a server.

/** Moves a finger to and fro for so long, at an even rate whatever the browser takes for it. */
async function sweepFor(duration, device, finger, places) {
  const start = performance.now();
  for (let move = 0; move < duration * movesPerSecond; ++move) {
    const due = start + move * 1000 / movesPerSecond;
    if (due > performance.now()) await pause(due - performance.now());
    const phase = (move / movesPerSecond / sweep.period) % 1;
    const share = phase < 0.5 ? 2 * phase : 2 - 2 * phase;
    const x = places[0].x + share * (places[1].x - places[0].x);
    device.touch('touchMove', finger, { x, y: places[0].y }).catch(() => {}); // Not waited for.
  }
}

/** What a page gets to see of a finger that sweeps; `check` is called while it is down. */
async function measure(device, duration, check = () => {}) {
  const { page } = device;
  const finger = device.finger();
  const places = [await device.place(sweep.from, sweep.y), await device.place(sweep.to, sweep.y)];
  await finger.down(318, sweep.y);
  await finger.move(sweep.to, sweep.y);
  await sweepFor(warmUp, device, finger, places);
  await check();
  await page.evaluate(() => takeRecord());
  await sweepFor(duration, device, finger, places);
  const { drawn, shown, seconds, toDrawn, toFrame } = await page.evaluate(() => takeRecord());
  await finger.up();
  return {
    'pictures drawn a second': drawn / seconds,
    'frames a second with a new picture': shown / seconds,
    'touch to picture, median, ms': quantile(toDrawn, 0.5),
    'touch to picture, 95 %, ms': quantile(toDrawn, 0.95),
    'touch to frame, median, ms': quantile(toFrame, 0.5),
    'touch to frame, 95 %, ms': quantile(toFrame, 0.95),
  };
}

function quantile(values, share) {
  const sorted = [...values].sort((one, other) => one - other);
  return sorted[Math.min(Math.floor(sorted.length * share), sorted.length - 1)];
}

/** Messages of the server as they come while a finger sweeps: what the page without a server is given. */
async function capture(rig, device) {
  const pictures = [];
  const take = (message) => {
    pictures.push(message.toString('base64'));
    rig.client.send('shown', message.readUInt32LE());
  };
  rig.client.on('picture', take);
  take(rig.client.last.picture); // Which has not been answered yet.
  await measure(device, 1);
  rig.client.off('picture', take);
  const { state, settings } = rig.client.last;
  return { texts: [{ state }, { settings }].map((each) => JSON.stringify(each)), pictures: pictures.slice(-pictureCount) };
}

function report(results) {
  const cell = (values) => {
    const [middle, least, most] = [0.5, 0, 1].map((share) => quantile(values, share).toFixed(1));
    return `${middle} (${least}–${most})`;
  };
  console.log(`${rounds} rounds of ${wantedSeconds} s each: median of the rounds (least–most)\n`);
  console.log(`${''.padEnd(38)}${'served'.padEnd(20)}${'without a server'.padEnd(20)}ratio`);
  for (const name of Object.keys(results[0].served)) {
    const [served, floor] = ['served', 'floor'].map((kind) => results.map((result) => result[kind][name]));
    const ratio = quantile(served, 0.5) / quantile(floor, 0.5);
    console.log(`${name.padEnd(38)}${cell(served).padEnd(20)}${cell(floor).padEnd(20)}${ratio.toFixed(2)}`);
  }
}

const served = `(${record})();`; // What goes into a page before its own scripts.
const rig = new Rig();
try {
  await rig.start([], window);
  await rig.device.close();
  const measureOn = async (content, work) => {
    await rig.runOnly(...apps);
    await rig.atRest();
    const device = await rig.openPage(window, (page) => page.addInitScript({ content }));
    const result = await work(device);
    await device.close();
    return result;
  };
  const messages = await measureOn(served, (device) => capture(rig, device));
  const floor = `(${standIn})(${JSON.stringify(messages)});${served}`;
  const results = [];
  for (let round = 0; round < rounds; ++round) {
    results.push({
      served: await measureOn(served, (device) => measure(device, wantedSeconds, () => rig.switcher(isAt('open')))),
      floor: await measureOn(floor, (device) => measure(device, wantedSeconds)),
    });
  }
  report(results);
} finally {
  await rig.stop();
}
