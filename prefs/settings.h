#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/foundation/ns_array.h"
#include "platform/uikit/ui_color.h"

namespace vistrel {

/// The fixed words that settings are compared with, exactly and case-sensitively.
namespace word {
inline constexpr std::string_view right = "Right", left = "Left";
inline constexpr std::string_view push = "Push", flat = "Flat";
inline constexpr std::string_view side = "Side", split = "Split", up = "Up", down = "Down";
inline constexpr std::string_view top = "Top", bottom = "Bottom";
inline constexpr std::string_view grow = "Grow", roll = "Roll", shrink = "Shrink";
inline constexpr std::string_view bounceUp = "BounceUp", bounceDown = "BounceDown";
inline constexpr std::string_view lock = "Lock", home = "Home", none = "None";
inline constexpr std::string_view linen = "Linen", color = "Color";
}  // namespace word

/// Everything that the user can choose, named by its key in the preferences file, with its built-in default.
///
/// A word that none of the tests below knows takes their no-match branch. Only the preference loader writes
/// these.
struct Settings {
  std::string swipeDirection{word::right};     ///< The screen edge at which the switcher rests.
  std::string animationStyle{word::push};      ///< How the bands open.
  std::string flatAnimationStyle{word::side};  ///< Where the middle band of "Flat" goes.
  bool upDownOpen = false;                     ///< A straight swipe along the edge opens too.
  bool appNames = false;           ///< Names beside the icons; the strip itself is made at start only.
  bool blur = false;               ///< The bands blur slightly as they open.
  bool dim = true;                 ///< The upper and lower bands darken as they open.
  bool enabled = true;             ///< Consulted at start only.
  bool iconFade = false;           ///< Icons that are not under the finger fade.
  bool nameFade = false;           ///< The same for names.
  bool activatorOnly = false;      ///< No grab strip: Activator alone opens the switcher.
  bool lsEnabled = true;           ///< Opens on the lock screen too.
  bool favouritesEnabled = false;  ///< Favourites instead of recent applications.
  std::string appNamePosition{word::bottom};  ///< Where names lie beside the icons.
  std::string iconAnimation{word::grow};      ///< How the icon under the finger stands out.
  std::string nameAnimation{word::grow};      ///< The same for its name.
  std::string background{word::linen};        ///< What lies behind the bands.
  bool swipeActionEnabled = true;             ///< Long drags up and down run the actions below.
  std::string swipeUpAction{word::lock};
  std::string swipeDownAction{word::home};
  float iconSize = 0.7f;                    ///< Scale of the resting icons.
  std::int32_t visibleEdge = 15;            ///< Width of the grab strip, in points.
  UIColor topColor = UIColor::grayColor();  ///< Of the "Color" background.
  UIColor bottomColor = UIColor::darkGrayColor();

  bool pushes() const { return animationStyle == word::push; }
  bool isFlat() const { return animationStyle == word::flat; }
  bool flatSplits() const { return flatAnimationStyle == word::split; }
  bool flatGoesUp() const { return flatAnimationStyle == word::up; }
  bool flatGoesDown() const { return flatAnimationStyle == word::down; }
  bool flatGoesAside() const { return flatAnimationStyle == word::side; }
};

extern Settings settings;

/// The user's favourites in the order of their keys; never null once preferences have been loaded.
extern NSStringArrayRef favouriteApps;
/// Applications in front of which the switcher hides.
extern NSStringArray disabledApps;

}  // namespace vistrel
