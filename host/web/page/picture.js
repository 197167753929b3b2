// A picture message taken apart.

const headerLength = 16;

/**
 * `frame` is the picture's number, `touch` the last touch's that it can show, `time` the device's, in
 * seconds.
 */
export function readPicture(buffer) {
  const header = new DataView(buffer, 0, headerLength);
  return {
    frame: header.getUint32(0, true),
    touch: header.getUint32(4, true),
    time: header.getFloat64(8, true),
    jpeg: new Blob([new Uint8Array(buffer, headerLength)], { type: 'image/jpeg' }),
  };
}
