// Lists of applications on the page, which are made anew only when they have to be.

/**
 * Given `rebuild(apps)`, returns a function to be called with the applications as often as one likes: it
 * rebuilds when others are there than the last time, or under other names.
 */
export function onlyForOtherApps(rebuild) {
  let built = '';
  return (apps) => {
    const names = JSON.stringify(apps.map(({ bundle, name }) => [bundle, name]));
    if (names === built) return;
    built = names;
    rebuild(apps);
  };
}
