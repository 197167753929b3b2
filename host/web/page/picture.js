// A picture message taken apart.

const headerLength = 16;

/**
 * `number` is the picture's own, `touch` that of the last touch that it can show, `time` the device's, in
 * seconds.
 */
export function readPicture(buffer) {
  const header = new DataView(buffer, 0, headerLength);
  return {
    number: header.getUint32(0, true),
    touch: header.getUint32(4, true),
    time: header.getFloat64(8, true),
    jpeg: new Blob([new Uint8Array(buffer, headerLength)], { type: 'image/jpeg' }),
  };
}
