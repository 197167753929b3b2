// Slow motion: how fast the device's time runs, and what it says while it does not run as ours does.

const timeDecimals = 3;

/**
 * Given the `canvas` that tells of pictures, the `group` of the paces to choose from, the `step` button, the
 * `row` of the `clock`, and `send`; `update(state)` takes the device's state.
 */
export function createPace({ canvas, group, step, row, clock, send }) {
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
