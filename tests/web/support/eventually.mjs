// Waiting for what is bound to come, however busy the machine is.

import { setTimeout as pause } from 'node:timers/promises';

const patience = 20_000; // Milliseconds.
const interval = 20;

/** Repeats `attempt` until it throws no more, and returns its result; when patience ends, its last error is thrown. */
export async function eventually(attempt) {
  const deadline = performance.now() + patience;
  for (;;) {
    try {
      return await attempt();
    } catch (error) {
      if (performance.now() > deadline) throw error;
    }
    await pause(interval);
  }
}
