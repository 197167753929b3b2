// Chance that can be repeated.

import { createHash } from 'node:crypto';

/** Throws that `seed`, any text, determines. */
export class Dice {
  #throws = 0;

  constructor(seed) {
    this.seed = seed;
  }

  /** From `least` up to, but not including, `most`. */
  between(least, most) {
    this.#throws += 1;
    const bits = createHash('sha256').update(`${this.seed} ${this.#throws}`).digest().readUInt32LE();
    return least + (most - least) * bits / 2 ** 32;
  }

  pick(list) {
    return list[Math.floor(this.between(0, list.length))];
  }
}
