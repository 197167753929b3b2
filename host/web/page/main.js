// Vistrel's page: puts the parts together and hands them what the connection brings.

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
const [canvas, glass, svg] = ['screen', 'glass', 'outlines'].map(element);

let state = null; // The device's last, null before the first.
let sendNow = () => false;
const send = (...message) => sendNow(...message);

const screen = createScreen(canvas, (frame) => send('shown', [frame]));
const device = createDevice({ stage: element('stage'), device: element('device'), glass, canvas });
const inspector = createInspector({ glass, canvas, svg, device, send });
const meter = createMeter(canvas);
const fingers = createFingers({ glass, canvas, device, send, onTouch: meter.touch });
const status = createStatus();
const pace = createPace(canvas, send);
const apps = createApps(element('apps'), send);
const respringNotice = element('respring-notice');
const settings = createSettings(element('pane-settings'), send, (due) => { respringNotice.hidden = !due; });
const actions = createActions({
  send, state: () => state, angle: device.angle, toggleInspector: inspector.toggle,
});
const controls = createControls(actions);
createKeys(canvas, actions);
createTabs(document.querySelector('[role=tablist]'));
createSheet({ toggle: element('sheet-toggle'), handle: element('sheet-handle'), panel: element('panel') });

const receivers = {
  state(next) {
    state = next;
    status.connected();
    for (const part of [device, inspector, status, controls, pace, apps]) part.update(state);
    settings.updateApps(state.apps);
  },
  settings: settings.update,
  inspection: inspector.answer,
  problem: status.problem,
};

sendNow = openConnection(socketAddress(), {
  onOpen() {
    inspector.ask();
  },
  onClosed(notice, rebooting) {
    screen.forget();
    fingers.forget();
    inspector.forget();
    if (rebooting) settings.startAfresh();
    status.closed(notice);
  },
  onText(message) {
    for (const [member, value] of Object.entries(message)) receivers[member]?.(value);
  },
  onPicture: screen.show,
});
