// Tabs: one pane of the panel at a time.

const stepOfKey = { ArrowLeft: -1, ArrowRight: 1 };

export function createTabs(list) {
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
    const from = tabs.indexOf(document.activeElement);
    const to = event.key === 'Home' ? 0 : event.key === 'End' ? tabs.length - 1
      : stepOfKey[event.key] && (from + stepOfKey[event.key] + tabs.length) % tabs.length;
    if (to === undefined) return;
    event.preventDefault();
    tabs[to].focus();
    select(tabs[to]);
  });

  return { select };
}
