// Numbers as they are sent and shown.

/** Two decimals are finer than any pixel, and than anything that a person reads. */
export const roundToHundredths = (value) => Math.round(value * 100) / 100;
