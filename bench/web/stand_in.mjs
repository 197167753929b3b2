// A device without a server: what a page without one would have to draw, for the cost of the browser alone.

/**
 * To be run in a page before its scripts. WebSocket is replaced by one that says `texts` and answers each touch
 * at once with one of `pictures` (messages as the server sends them, in base64), in turn; like the server it
 * waits with the next one until the last has been answered.
 */
export function standIn({ texts, pictures }) {
  const buffers = pictures.map((text) => Uint8Array.from(atob(text), (byte) => byte.charCodeAt(0)).buffer);
  const bytesOfNumber = 4;

  window.WebSocket = class extends EventTarget {
    static OPEN = 1;
    readyState = 0;
    #sent = 0;
    #answered = 0;
    #touch = 0;
    #touchShown = -1;
    #channel = new MessageChannel(); // So that what is sent arrives as a task of its own.

    constructor() {
      super();
      this.#channel.port1.onmessage = ({ data }) => this.dispatchEvent(new MessageEvent('message', { data }));
      setTimeout(() => {
        this.readyState = 1;
        this.dispatchEvent(new Event('open'));
        for (const text of texts) this.#channel.port2.postMessage(text);
        this.#sendPicture();
      });
    }

    send(text) {
      const { verb, arguments: [picture], number } = JSON.parse(text);
      if (verb === 'touch') this.#touch = number;
      if (verb === 'shown') this.#answered = picture;
      this.#sendPicture();
    }

    #sendPicture() {
      if (this.#answered < this.#sent || this.#touchShown === this.#touch) return;
      this.#sent += 1;
      this.#touchShown = this.#touch;
      const buffer = buffers[this.#sent % buffers.length].slice();
      const head = new DataView(buffer);
      head.setUint32(0, this.#sent, true);
      head.setUint32(bytesOfNumber, this.#touch, true);
      this.#channel.port2.postMessage(buffer, [buffer]);
    }
  };
}
