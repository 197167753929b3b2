#pragma once

#include <memory>

#include "platform/runtime/message.h"
#include "platform/springboard/sb_application.h"
#include "platform/uikit/ui_image.h"

/// The icon of an application on the home screen.
class SBApplicationIcon : public NSObject {
  OBJC_CLASS(SBApplicationIcon, NSObject)
 public:
  /// The variant of the picture that the home screen shows.
  static constexpr int HomeScreenVariant = 2;

  explicit SBApplicationIcon(SBApplication* application) : application_(application) {}

  SBApplication* application() const { return application_; }  ///< May be null; owned by the catalogue.
  /// The icon's picture, or null where the application has none.
  std::shared_ptr<UIImage> getIconImage(int variant) {
    return send<std::shared_ptr<UIImage>>(*this, "getIconImage:", variant);
  }
  /// The user has tapped the icon.
  void launch() { send<void>(*this, "launch"); }

 private:
  SBApplication* application_;  // Owned by the catalogue.
};
