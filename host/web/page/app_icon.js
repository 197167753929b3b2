// The picture of an application; only its place where there is none.

import { iconAddress } from './address.js';
import { make } from './elements.js';

export function makeAppIcon(bundle) {
  const icon = make('img', { src: iconAddress(bundle), alt: '', draggable: false });
  icon.addEventListener('error', () => icon.classList.add('missing'));
  return icon;
}
