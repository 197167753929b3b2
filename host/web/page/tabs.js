// Tabs: one pane of the panel at a time.

// Which of `count` tabs a key leads to from the one at `index`.
const tabAfterKey = {
  ArrowLeft: (index, count) => (index - 1 + count) % count,
  ArrowRight: (index, count) => (index + 1) % count,
  Home: () => 0,
  End: (index, count) => count - 1,
};

/** Given the `list` of the tabs, each of which names its pane in `aria-controls`. */
export function createTabs({ list }) {
  const tabs = [...list.querySelectorAll('[role=tab]')];

  function select(chosen) {
    for (const tab of tabs) {
      const selected = tab === chosen;
      tab.setAttribute('aria-selected', selected);
      tab.tabIndex = selected ? 0 : -1;
      document.getElementById(tab.getAttribute('aria-controls')).hidden = !selected;
    }
  }

  list.addEventListener('click', (event) => {
    const tab = event.target.closest('[role=tab]');
    if (tab) select(tab);
  });
  list.addEventListener('keydown', (event) => {
    if (!Object.hasOwn(tabAfterKey, event.key)) return;
    event.preventDefault();
    const tab = tabs[tabAfterKey[event.key](tabs.indexOf(document.activeElement), tabs.length)];
    tab.focus();
    select(tab);
  });
}
