// What tests have in common: a device, a browser with the device's page, and a client that looks on.

import assert from 'node:assert/strict';
import { after, before } from 'node:test';

import { Client } from './client.mjs';
import { bundleOf, DevicePage } from './device_page.mjs';
import { eventually } from './eventually.mjs';
import { Springboard } from './springboard.mjs';
import { switcherIn } from './switcher.mjs';

const { chromium } = await import('playwright-core').catch(() => {
  throw new Error('playwright-core is missing: run "npm ci" in tests/web');
});

/** A foreign name that leads to this machine, as a hostile one may. */
export const reboundHost = 'rebound.example';

const executablePath = process.env.CHROMIUM ?? '/usr/bin/chromium';
const args = ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
  '--disable-component-update', '--disable-sync', `--host-resolver-rules=MAP ${reboundHost} 127.0.0.1`];

/** To be called in a group of tests, which then find it started. `options` are the springboard's. */
export function useRig(...options) {
  const rig = new Rig();
  before(() => rig.start(options));
  after(() => rig.stop());
  return rig;
}

export class Rig {
  #closings = []; // What is to be done in the end, the last first.

  /** The device and the browser alone, for those who bring their own pages. */
  async startEmpty(options = []) {
    this.springboard = await Springboard.start(...options);
    this.#closings.push(() => this.springboard.stop());
    this.browser = await chromium.launch({ executablePath, args });
    this.#closings.push(() => this.browser.close());
  }

  async start(options = [], window = {}) {
    await this.startEmpty(options);
    this.client = await this.connect();
    this.device = await this.openPage(window);
    this.page = this.device.page;
  }

  /** Closes everything, whatever goes wrong on the way; then throws the first fault. */
  async stop() {
    const faults = [];
    for (const close of this.#closings.reverse()) await close().catch((fault) => faults.push(fault));
    if (faults.length) throw faults[0];
  }

  /** One more page; `options` as DevicePage.open takes them. */
  async openPage(...options) {
    const device = await DevicePage.open(this.browser, this.springboard.address, ...options);
    this.#closings.push(() => device.close());
    return device;
  }

  /** One more client, which has been told the device's state. */
  async connect() {
    const client = await Client.connect(this.springboard.address);
    await client.describe();
    return client;
  }

  /** Starts these applications, each over the one before, and ends all others. */
  async runOnly(...names) {
    for (const { bundle, running } of this.client.last.state.apps) if (running) this.client.send('terminate', bundle);
    for (const name of names) this.client.send('launch', bundleOf(name));
    await eventually(() => assert.equal(this.client.last.state.frontmost, bundleOf(names.at(-1))));
  }

  /** The same, and the page as it is at first. */
  async startOver(...names) {
    await this.runOnly(...names);
    await this.device.reload();
  }

  /** Until nothing moves on the device any more. */
  async atRest() {
    const views = async () => (await this.client.describe('--presentation')).windows;
    await eventually(async () => assert.deepEqual(await views(), await views()));
  }

  /** Until `check` throws no more about the switcher as it is then; returns that. */
  switcher(check) {
    return eventually(async () => {
      const switcher = switcherIn(await this.client.describe());
      check(switcher);
      return switcher;
    });
  }
}
