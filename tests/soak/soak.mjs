#!/usr/bin/env node
// The device in real time under people in three browsers, who come, use it and go.
//
//     SPRINGBOARD=... STAGED_ROOT=... node tests/soak/soak.mjs [MINUTES] [--seed SEED]

import assert from 'node:assert/strict';
import { randomInt } from 'node:crypto';
import { mkdtempSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { parseArgs, stripVTControlCharacters } from 'node:util';

import { Rig } from '../web/support/rig.mjs';
import { checkSilent, playRounds } from './rounds.mjs';

const usualMinutes = 2;
const token = 'soak-token';
const [failed, notUnderstood] = [1, 2]; // Exit codes.

// Memory that is free then goes back to the system, so that what is measured is what is in use: larger blocks are
// mapped one by one, and the sanitizer keeps but a few of those that were freed.
process.env.GLIBC_TUNABLES ??= 'glibc.malloc.mmap_threshold=131072';
process.env.ASAN_OPTIONS ??= 'quarantine_size_mb=4';

/** Says why, in a line, and ends whatever is still under way. */
function fail(code, reason) {
  console.error(`soak: ${stripVTControlCharacters(reason).replace(/\s+/g, ' ')}`);
  process.exit(code);
}

function options() {
  try {
    const { positionals, values } = parseArgs({ allowPositionals: true, options: { seed: { type: 'string' } } });
    const [minutes = usualMinutes, ...others] = positionals;
    assert(minutes > 0 && !others.length, 'MINUTES must be one number above 0');
    return { minutes: Number(minutes), seed: values.seed ?? String(randomInt(2 ** 32)) };
  } catch (cause) {
    return fail(notUnderstood, cause.message);
  }
}

const { minutes, seed } = options();
const directory = mkdtempSync(join(tmpdir(), 'springboard-soak-'));
process.once('exit', () => rmSync(directory, { recursive: true }));
const log = join(directory, 'events');
console.log(`${minutes} minutes, --seed ${seed}`);
const rig = new Rig();
try {
  await rig.startEmpty(['--token', token, '--log', log]);
  const death = rig.springboard.ended.then((end) => { throw new Error(`the server has ended: ${end}`); });
  await Promise.race([playRounds(rig, minutes, seed, log), death]);
  death.catch(() => {}); // From now on it is meant to end.
  await rig.stop();
  checkSilent(rig.springboard);
} catch (fault) {
  fail(failed, `--seed ${seed}: ${fault.message}`);
}
