// Property lists, as plistutil reads them.

import { execFileSync } from 'node:child_process';

/** The list in a file (or in `input`, where `file` is '-'): each key anywhere in it, with its value as XML. */
export function readPropertyList(file, input) {
  const xml = execFileSync('plistutil', ['-i', file, '-f', 'xml'], { input, encoding: 'utf8' });
  const entries = xml.matchAll(/<key>([^<]+)<\/key>\s*(<(\w+)>[^<]*<\/\3>|<\w+\/>)/g);
  return Object.fromEntries([...entries].map(([, key, value]) => [key, value]));
}

/** A value as XML. */
export function valueXml(value) {
  if (typeof value === 'boolean') return `<${value}/>`;
  const type = typeof value === 'string' ? 'string' : Number.isInteger(value) ? 'integer' : 'real';
  return `<${type}>${value}</${type}>`;
}

/** The colour, as "#rrggbb", in the keyed archive that a `<data>` holds. */
export function archivedColor(xml) {
  const archive = readPropertyList('-', Buffer.from(xml.replace(/<\/?data>/g, ''), 'base64'));
  const parts = ['UIRed', 'UIGreen', 'UIBlue'].map((key) => Math.round(255 * parseFloat(archive[key].slice(6))));
  return `#${Buffer.from(parts).toString('hex')}`;
}
