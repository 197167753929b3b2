#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/foundation/property_list.h"

namespace host {

/// A pane of preferences as its property list describes it: the table of the keys that a library reads, each
/// with the control that sets it. docs/web.md lists what such a file holds.

/// A control: what values it can hold, and how they stand in the file. `kind` is the control's name for
/// pages, `cell` the one in the pane's property list.
struct SwitchCell {  ///< A boolean.
  static constexpr const char* kind = "switch";
  static constexpr const char* cell = "PSSwitchCell";
};
struct Choice {
  std::string value;  ///< As stored.
  std::string title;
};
struct ChoiceCell {  ///< A string, one of these.
  static constexpr const char* kind = "choice";
  static constexpr const char* cell = "PSLinkListCell";
  std::vector<Choice> choices;
};
struct SliderCell {  ///< A number from `min` to `max`: an integer where `step` is whole, otherwise a real.
  static constexpr const char* kind = "slider";
  static constexpr const char* cell = "PSSliderCell";
  double min, max, step;
  bool isWhole() const;
};
struct ColorCell {  ///< Data, the keyed archive of a UIColor; "#rrggbb" for pages.
  static constexpr const char* kind = "color";
  static constexpr const char* cell = "ColorCell";
};
struct AppCell {  ///< A string, a bundle identifier; no key while none is chosen.
  static constexpr const char* kind = "app";
  static constexpr const char* cell = "AppCell";
};
struct AppListCell {  ///< A boolean for each application, under keys of their own.
  static constexpr const char* kind = "apps";
  static constexpr const char* cell = "AppListCell";
};
using Cell = std::variant<SwitchCell, ChoiceCell, SliderCell, ColorCell, AppCell, AppListCell>;

/// A heading, and what is to be said about the items down to the next one.
struct PreferenceGroup {
  std::string label;   ///< May be empty.
  std::string footer;  ///< May be empty.
};

/// One control and where its value is kept.
struct PreferenceItem {
  Cell cell;
  std::string label;
  std::string domain;  ///< The property list that holds the value: its file name without the ending.
  std::string key;     ///< Of an AppListCell, how its keys begin; bundle identifiers complete them.
  /// What counts while the file lacks the key, as the file would hold it. Nothing means no application, or
  /// for a list of them, that all are off.
  std::optional<PropertyList> defaultValue;
  std::string notification;       ///< Posted to the Darwin centre after every change.
  bool requiresRespring = false;  ///< A running SpringBoard does not take the change up.
};

struct PreferencePane {
  std::string file;  ///< Its path on the device.
  std::string title;
  std::vector<std::variant<PreferenceGroup, PreferenceItem>> rows;
};

/// The panes in /Library/PreferenceLoader/Preferences, in order of their files' names. A pane with anything
/// in it that is not usable is left out and leaves one line, its file and the cause, in `warnings`; so does
/// the first one that is too many.
std::vector<PreferencePane> readPreferencePanes(std::vector<std::string>& warnings);

}  // namespace host
