// Slow motion: how fast the device's time runs, and what it says while it does not run as ours does.

const timeDecimals = 3;

export function createPace(canvas, send) {
  const group = document.getElementById('pace');
  const step = document.getElementById('step');
  const row = document.getElementById('time-row');
  const clock = document.getElementById('device-time');
  const choices = [...group.querySelectorAll('input')];
  let time = 0; // The device's, as of the last picture.

  group.addEventListener('change', (event) => send('pace', [Number(event.target.value)]));
  canvas.addEventListener('picture', ({ detail }) => {
    time = detail.time;
    showTime();
  });

  function showTime() {
    if (!row.hidden) clock.value = `${time.toFixed(timeDecimals)} s`;
  }

  function update({ pace }) {
    for (const choice of choices) choice.checked = Number(choice.value) === pace;
    step.disabled = pace !== 0;
    row.hidden = pace === 1;
    showTime();
  }

  return { update };
}
