// Vistrel's page: puts the parts together and hands them what the connection brings. Each part is given its
// elements and what it needs of the others, in one object.

import { createActions } from './actions.js';
import { socketAddress } from './address.js';
import { createApps } from './apps.js';
import { openConnection } from './connection.js';
import { createControls } from './controls.js';
import { createDevice } from './device.js';
import { createFingers } from './fingers.js';
import { createInspector } from './inspector.js';
import { createKeys } from './keys.js';
import { createMeter } from './meter.js';
import { createPace } from './pace.js';
import { createScreen } from './screen.js';
import { createSettings } from './settings.js';
import { createSheet } from './sheet.js';
import { createStatus } from './status.js';
import { createTabs } from './tabs.js';

const element = (id) => document.getElementById(id);
const [canvas, glass] = ['screen', 'glass'].map(element);

let state = null; // The device's last, null before the first.
let sendNow = () => false;
const send = (...message) => sendNow(...message);

const screen = createScreen({ canvas, acknowledge: (number) => send('shown', [number]) });
const device = createDevice({ stage: element('stage'), body: element('device'), glass, canvas });
const inspector = createInspector({
  glass,
  canvas,
  svg: element('outlines'),
  toggle: element('inspector-toggle'),
  pointRow: element('inspect-point'),
  fields: ['inspect-x', 'inspect-y'].map(element),
  viewList: element('views'),
  device,
  send,
});
const meter = createMeter({ canvas, rate: element('stat-rate'), latency: element('stat-latency') });
const fingers = createFingers({ glass, canvas, device, send, onTouch: meter.touch });
const status = createStatus({
  page: document.body,
  front: element('front'),
  model: element('model'),
  announcement: element('announcement'),
  notice: element('notice'),
  toasts: element('toasts'),
});
const pace = createPace({
  canvas,
  group: element('pace'),
  step: element('step'),
  row: element('time-row'),
  clock: element('device-time'),
  send,
});
const apps = createApps({ list: element('apps'), send });
const settings = createSettings({
  pane: element('pane-settings'),
  respringNotice: element('respring-notice'),
  send,
});
const actions = createActions({
  send,
  state: () => state,
  angle: device.angle,
  toggleInspector: inspector.toggle,
});
const controls = createControls({
  page: document.body,
  lockButton: element('lock-button'),
  keyboardButton: element('keyboard-button'),
  actions,
});
createKeys({ canvas, actions });
createTabs({ list: element('tabs') });
createSheet({
  page: document.body,
  toggle: element('sheet-toggle'),
  handle: element('sheet-handle'),
  panel: element('panel'),
});

const receivers = {
  state(next) {
    state = next;
    for (const part of [device, inspector, status, controls, pace, apps]) part.update(state);
    settings.updateApps(state.apps);
  },
  settings: settings.update,
  inspection: inspector.answer,
  problem: status.problem,
};

sendNow = openConnection({
  address: socketAddress(),
  onConnected() {
    status.connected();
    inspector.ask();
  },
  onClosed(notice) {
    screen.forget();
    fingers.forget();
    inspector.forget();
    status.closed(notice);
  },
  onText(message) {
    for (const [member, value] of Object.entries(message)) receivers[member]?.(value);
  },
  onPicture: screen.show,
});
