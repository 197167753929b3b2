// The rounds of a soak: in each, people come and go, and in the end all have gone.

import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { setTimeout as pause } from 'node:timers/promises';

import { eventually } from '../web/support/eventually.mjs';
import { Dice } from './dice.mjs';
import { launch, respring, swipe, usual } from './habits.mjs';
import { Visitor } from './visitor.mjs';
import { Vitals } from './vitals.mjs';

const visitors = 3; // At a time.
const longestBreak = 2_000; // Milliseconds between two visits.
const longestRound = 1; // Minutes.
const fewestRounds = 4;
// Resprings begin some rounds of the run's first third; what remains is one process' life.
const [resprungPart, roundsToRespring] = [1 / 3, 5];
// MiB that memory may have grown by, everybody having gone, since any whole round of that process. The situation is
// the same then; which pictures of the screen the device has kept, 2.3 MiB each, is not.
const mostGrowth = 16;
const columns = ['minute', 'MiB', 'at rest', 'peak', 'threads', 'files', 'at rest', 'joined', 'pictures', 'picks',
  'CPU %'];

/** One person after the other, until it is time to close; the first begins with `plans`. */
async function visits({ rig, tally }, dice, plans, closing) {
  do {
    const visitor = await Visitor.arrive(rig, dice, tally);
    await visitor.stay(plans, usual, closing);
    await visitor.leave();
    await pause(dice.between(0, longestBreak));
  } while (performance.now() < closing);
}

/** The same situation every time, brought about by somebody who then goes without a word: it has to answer. */
async function tidyUp(rig) {
  rig.client = await rig.connect();
  rig.client.send('unlock');
  await rig.runOnly('maps');
  await rig.atRest();
  rig.client.socket.destroy();
}

export function checkSilent({ messages }) {
  assert(!messages.length, `the server has complained: ${messages.join(' / ')}`);
}

function printRow(cells, note = '') {
  const text = (cell) => (typeof cell === 'number' ? String(Math.round(cell * 10) / 10) : cell);
  console.log(cells.map((cell) => text(cell).padStart(9)).join('') + note);
}

/** Everybody comes and goes until it is time to close; one begins with a respring, if there is to be one. */
async function playRound(crowd, resprings, closing) {
  const plans = [launch, launch, swipe, swipe];
  await Promise.all(crowd.dice.map((dice, index) =>
    visits(crowd, dice, resprings && index === 0 ? [respring, ...plans] : [...plans], closing)));
}

/** How the server is while everybody is there. */
async function lookBefore(closing, vitals) {
  await pause(closing - performance.now());
  return { ...vitals.memory(), files: vitals.files() };
}

/** How the server is when everybody has left, which has to be no more than it was before. */
class Rest {
  #vitals;
  #files;
  #least = Infinity; // MiB after any whole round of this process.

  constructor(vitals) {
    this.#vitals = vitals;
    this.#files = vitals.files();
  }

  async look() {
    await eventually(() => {
      const files = this.#vitals.files();
      assert(files <= this.#files, `${files} files are open after everybody has left; it was ${this.#files} before`);
      this.#files = files; // A respring leaves behind what the first start had inherited.
    });
    return { ...this.#vitals.memory(), files: this.#files };
  }

  checkMemory({ resident }, resprung) {
    assert(resident <= this.#least + mostGrowth,
      `memory was at ${this.#least} MiB and has grown by more than ${mostGrowth} MiB`);
    this.#least = resprung ? Infinity : Math.min(this.#least, resident);
  }
}

function countPicks(log) {
  return readFileSync(log, 'utf8').split('"by":"switcher"').length - 1;
}

/**
 * Plays on `rig`, in `minutes`, what `seed` makes of them, and says in each round how the server is doing: shortly
 * before everybody leaves, and when they have left. `log` is the device's.
 */
export async function playRounds(rig, minutes, seed, log) {
  const length = Math.min(longestRound, minutes / fewestRounds);
  const rounds = Math.round(minutes / length);
  const dice = Array.from({ length: visitors }, (_, index) => new Dice(`${seed} ${index}`));
  const crowd = { rig, dice, tally: { visits: 0, pictures: 0 } };
  const vitals = new Vitals(rig.springboard.pid);
  const rest = new Rest(vitals);
  const start = performance.now();
  printRow(columns);
  for (let round = 1; round <= rounds; ++round) {
    const resprings = round <= rounds * resprungPart && round % roundsToRespring === 1;
    const closing = start + round * length * 60_000;
    const [inUse] = await Promise.all([lookBefore(closing, vitals), playRound(crowd, resprings, closing)]);
    checkSilent(rig.springboard);
    await tidyUp(rig);
    const atRest = await rest.look();
    const picks = countPicks(log);
    printRow([round * length, inUse.resident, atRest.resident, atRest.peak, inUse.threads, inUse.files, atRest.files,
      crowd.tally.visits, crowd.tally.pictures, picks, 100 * vitals.load()], resprings ? '  resprung' : '');
    rest.checkMemory(atRest, resprings);
    assert(picks > 0 || round < rounds, 'nobody has picked an application with the switcher');
  }
}
