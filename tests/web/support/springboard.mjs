// A springboard on a device root of its own, at a port that is free.

import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { cpSync, mkdtempSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { createInterface } from 'node:readline';

const patience = 10_000; // Milliseconds.

export class Springboard {
  messages = []; // The lines that it has written to standard error.
  #process;
  #root;
  #cleanUp = () => {
    this.#process?.kill('SIGKILL');
    rmSync(this.#root, { recursive: true });
  };

  /** Starts $SPRINGBOARD on a copy of $STAGED_ROOT without its state; `options` are the command line's. */
  static async start(...options) {
    const { SPRINGBOARD: program, STAGED_ROOT: staged } = process.env;
    assert(program && staged, 'SPRINGBOARD must name the host’s executable, and STAGED_ROOT a device root');
    const springboard = new Springboard();
    await springboard.#start(program, staged, options);
    return springboard;
  }

  async #start(program, staged, options) {
    this.#root = mkdtempSync(join(tmpdir(), 'springboard-web-'));
    process.once('exit', this.#cleanUp);
    const state = join(staged, 'var/mobile');
    cpSync(staged, this.#root, { recursive: true, filter: (path) => path !== state });
    this.#process = spawn(program, ['--serve', '0', '--root', this.#root, ...options],
      { stdio: ['ignore', 'pipe', 'pipe'] });
    /** Its exit code and signal, when it has ended. */
    this.ended = once(this.#process, 'exit');
    createInterface(this.#process.stderr).on('line', (line) => {
      this.messages.push(line);
      console.error(line);
    });
    for await (const line of createInterface(this.#process.stdout)) {
      [this.address] = line.match(/http:\S+/);
      return;
    }
    throw new Error('The springboard said no address');
  }

  get pid() {
    return this.#process.pid;
  }

  settingsFile(domain) {
    return join(this.#root, `var/mobile/Library/Preferences/${domain}.plist`);
  }

  /** Switches it off as Ctrl-C does, which must go well: leaks and the like show here. */
  async stop() {
    this.#process.kill('SIGTERM');
    setTimeout(() => this.#process.kill('SIGKILL'), patience).unref();
    assert.deepEqual(await this.ended, [0, null], 'the springboard’s exit code and signal');
    process.off('exit', this.#cleanUp);
    this.#cleanUp();
  }
}
