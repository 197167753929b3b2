// How a process is doing, as the system tells it.

import { readFileSync, readdirSync } from 'node:fs';

const ticksPerSecond = 100; // Of the times in `stat`.
const kibPerMib = 1024;
const [userTime, systemTime] = [11, 12]; // Fields of `stat` after the name.

export class Vitals {
  #directory;
  #last;

  constructor(pid) {
    this.#directory = `/proc/${pid}`;
    this.#last = this.#used();
  }

  /** Resident memory now and at its peak, in MiB, and threads. Peaks begin anew with a respring. */
  memory() {
    const status = readFileSync(`${this.#directory}/status`, 'utf8');
    const read = (name) => Number(status.match(`${name}:\\s*(\\d+)`)[1]);
    const [resident, peak, threads] = ['VmRSS', 'VmHWM', 'Threads'].map(read);
    return { resident: resident / kibPerMib, peak: peak / kibPerMib, threads };
  }

  /** The number of files that it has open, sockets included. */
  files() {
    return readdirSync(`${this.#directory}/fd`).length;
  }

  /** The share of one processor that it has used since the last call. */
  load() {
    const [before, now] = [this.#last, this.#used()];
    this.#last = now;
    return (now.busy - before.busy) / (now.at - before.at);
  }

  #used() {
    const fields = readFileSync(`${this.#directory}/stat`, 'utf8').replace(/.*\) /s, '').split(' ');
    const ticks = Number(fields[userTime]) + Number(fields[systemTime]);
    return { busy: ticks / ticksPerSecond, at: performance.now() / 1000 };
  }
}
