// Who is not let in, and who is thrown out; the device is none the worse for it.

import assert from 'node:assert/strict';
import { once } from 'node:events';
import http from 'node:http';
import { afterEach, describe, test } from 'node:test';

import { Client, opcode } from './support/client.mjs';
import { bundleOf } from './support/device_page.mjs';
import { eventually } from './support/eventually.mjs';
import { readPropertyList } from './support/property_list.mjs';
import { reboundHost, useRig } from './support/rig.mjs';

const domain = 'com.zantric.vistrel';
const mostClients = 16;

describe('Refused', () => {
  const rig = useRig('--token', 'open-sesame');
  const address = (change) => Object.assign(new URL(rig.springboard.address), change);

  afterEach(async () => {
    await rig.device.launch('maps');
    await rig.device.press('home');
    await rig.device.inFront('');
  });

  test('a request that is not from here', async () => {
    const { host, port } = address();
    const cases = [
      [{ Origin: 'http://evil.example' }],
      [{ Origin: `https://${host}` }],
      [{ Origin: 'null' }],
      [{ Host: `evil.example:${port}`, Origin: `http://evil.example:${port}` }],
      [{ Host: '127.0.0.1', Origin: 'http://127.0.0.1' }],
      [{}, { search: '' }],
      [{}, { search: '?token=open-sesamE' }],
      [{}, { search: '?token=open' }],
    ];
    for (const [headers, change] of cases) {
      await assert.rejects(Client.connect(address(change), headers), { message: '403' }, JSON.stringify(headers));
    }
    for (const pathname of ['/', `/icons/${bundleOf('maps')}`]) {
      assert.equal((await fetch(address({ pathname, search: '' }))).status, 403, pathname);
    }
  });

  test('a page from elsewhere, even under a name that leads here', async () => {
    const { port, search, host } = address();
    const page = await rig.browser.newPage();
    const elsewhere = http.createServer((_, response) => response.end('Hello')).listen(0, '127.0.0.1');
    await once(elsewhere, 'listening');
    await page.goto(`http://127.0.0.1:${elsewhere.address().port}/`);
    elsewhere.close();
    const event = await page.evaluate((url) => new Promise((resolve) => {
      const socket = new WebSocket(url);
      socket.onopen = socket.onerror = ({ type }) => resolve(type);
    }), `ws://${host}/socket${search}`);
    assert.equal(event, 'error');
    assert.equal((await page.goto(`http://${reboundHost}:${port}/${search}`)).status(), 403);
    await page.close();
  });

  test('messages that no page of ours sends', async () => {
    const message = (verb, ...words) => JSON.stringify({ verb, arguments: words });
    const cases = [
      ['nonsense', /no JSON object/],
      [message('fly'), /fly/],
      [message('screenshot', '/tmp/never.png'), /screenshot/],
      [message('describe-all', '/tmp/never.json'), /describe-all/],
      [message('touch', 'down', 10, 10, '--finger', 10), /finger/],
      [message('pace', 2), /pace/],
      [message('set', 'com.example.other', 'dim', false), /com.example.other/],
      [message('set', domain, 'unknown', false), /unknown/],
      [message('set', domain, 'dim', 'no'), /dim/],
      [message('set', domain, 'swipeDirection', 'Up'), /swipeDirection/],
      [message('set', domain, 'visibleEdge', 1000), /visibleEdge/],
      [message('set', domain, 'topColor', 'red'), /topColor/],
      [message('set', domain, 'fav1', 'com.example.none'), /fav1/],
      ['"step"', /text/, 1008, opcode.binary],
      [message('step', 'x'.repeat(4096)), /^/, 1009],
    ];
    const settings = () => readPropertyList(rig.springboard.settingsFile(domain));
    const before = settings();
    for (const [text, wantedReason, wantedCode = 1008, kind = opcode.text] of cases) {
      const client = await rig.connect();
      await eventually(() => assert.equal(client.pictures, 1)); // What is on its way might swallow the reason.
      client.sendFrame(kind, text);
      const { code, reason } = await client.closed;
      assert.equal(code, wantedCode, text);
      assert.match(reason, wantedReason, text);
    }
    assert.deepEqual(settings(), before);
  });

  test('too many messages, and one client too many', async () => {
    const flooding = await Client.connect(address());
    for (let count = 0; count < 10_000; ++count) flooding.send('step');
    assert.deepEqual(await flooding.closed, { code: 1008, reason: 'too many messages' });

    const others = [];
    while (others.length < mostClients - 2) others.push(await rig.connect());
    assert.equal((await (await Client.connect(address())).closed).code, 1013);
    for (const client of others) client.socket.destroy();
  });
});
