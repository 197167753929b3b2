// Where things are: this server only, with the page's own token where it has one.

const token = new URLSearchParams(location.search).get('token');

function withToken(path) {
  return token === null ? path : `${path}?token=${encodeURIComponent(token)}`;
}

export function socketAddress() {
  const scheme = location.protocol === 'https:' ? 'wss:' : 'ws:';
  return `${scheme}//${location.host}${withToken('/socket')}`;
}

export function iconAddress(bundle) {
  return withToken(`/icons/${encodeURIComponent(bundle)}`);
}
