// A client that speaks the protocol by hand: it can misbehave as no browser would. Pictures it never answers.

import { randomBytes } from 'node:crypto';
import { EventEmitter, once } from 'node:events';
import http from 'node:http';

export const opcode = { more: 0, text: 1, binary: 2, close: 8, ping: 9, pong: 10 };
const lastPart = 0x80;
const masked = 0x80;
const [length16, length64] = [126, 127];
const mask = Buffer.alloc(4); // Of zeroes: it leaves the bytes as they are.

const patience = 20_000; // Milliseconds.

/** Emits what comes down: 'picture', and 'state', 'problem' and so on with their values. */
export class Client extends EventEmitter {
  pictures = 0; // So many came.
  last = {}; // The last value of each kind.
  #unread = Buffer.alloc(0);
  #message = []; // The parts of one that has begun.
  #isPicture = false;
  #end;

  /** Connects as the page at `address` would. Where the server refuses, the error's message is the HTTP status. */
  static connect(address, headers = {}) {
    const { origin, search } = new URL(address);
    const usual = {
      Origin: origin,
      Connection: 'Upgrade',
      Upgrade: 'websocket',
      'Sec-WebSocket-Version': 13,
      'Sec-WebSocket-Key': randomBytes(16).toString('base64'),
    };
    return new Promise((resolve, reject) => {
      http.get(new URL(`/socket${search}`, address), { headers: { ...usual, ...headers } })
        .on('upgrade', (_, socket, head) => resolve(new Client(socket, head)))
        .on('response', (response) => {
          response.destroy();
          reject(new Error(response.statusCode));
        })
        .on('error', reject);
    });
  }

  constructor(socket, head) {
    super();
    this.socket = socket;
    /** How it ended: `{code, reason}`; the code is 'none' where nothing was said. */
    this.closed = new Promise((resolve) => { this.#end = resolve; });
    socket.on('data', (bytes) => this.#receive(bytes));
    socket.on('error', () => {});
    socket.setTimeout(patience, () => socket.destroy()); // The server would have said something by then.
    socket.on('close', () => this.#end({ code: 'none' }));
    socket.unshift(head);
  }

  sendFrame(kind, text) {
    const bytes = Buffer.from(text);
    const length = bytes.length < length16 ? [bytes.length] : [length16, bytes.length >> 8, bytes.length & 0xff];
    const head = [lastPart | kind, masked | length[0], ...length.slice(1)];
    this.socket.write(Buffer.concat([Buffer.from(head), mask, bytes]));
  }

  send(verb, ...words) {
    this.sendFrame(opcode.text, JSON.stringify({ verb, arguments: words }));
  }

  async describe(...words) {
    this.send('describe-all', ...words);
    const [description] = await once(this, 'description', { signal: AbortSignal.timeout(patience) });
    return description;
  }

  #receive(bytes) {
    this.#unread = Buffer.concat([this.#unread, bytes]);
    for (let frame; (frame = readFrame(this.#unread)); this.#take(frame)) this.#unread = frame.rest;
  }

  #take({ isLast, kind, payload }) {
    if (kind === opcode.close) {
      this.#end({ code: payload.readUInt16BE(), reason: payload.toString('utf8', 2) });
      this.socket.end();
      return;
    }
    if (kind === opcode.ping) this.sendFrame(opcode.pong, payload);
    if (kind > opcode.close) return;
    if (kind !== opcode.more) this.#isPicture = kind === opcode.binary;
    this.#message.push(payload);
    if (!isLast) return;
    const message = Buffer.concat(this.#message.splice(0));
    this.pictures += this.#isPicture;
    const [[name, value]] = this.#isPicture ? [['picture', message]] : Object.entries(JSON.parse(message));
    this.last[name] = value;
    this.emit(name, value);
  }
}

/** The first frame in `bytes` and the rest behind it; null where it is not complete. */
function readFrame(bytes) {
  if (bytes.length < 2) return null;
  const [first, length] = bytes;
  const start = length === length64 ? 10 : length === length16 ? 4 : 2;
  if (bytes.length < start) return null;
  const end = start + (length === length64 ? Number(bytes.readBigUInt64BE(2))
    : length === length16 ? bytes.readUInt16BE(2) : length);
  if (bytes.length < end) return null;
  return { isLast: first >= lastPart, kind: first & 0xf, payload: bytes.subarray(start, end), rest: bytes.subarray(end) };
}
