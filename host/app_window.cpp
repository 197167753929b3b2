#include "host/app_window.h"

#include "host/interface_orientation.h"

namespace host {

AppScreen::AppScreen(Application& application, CGSize portrait, UIInterfaceOrientation orientation)
    : UIImageView({{0, 0}, portrait}), application_(application), portrait_(portrait) {
  setUserInteractionEnabled(true);
  turnTo(orientation);
}

CGAffineTransform AppScreen::upright() const { return uprightTransform(orientation_); }

void AppScreen::turnTo(UIInterfaceOrientation orientation) {
  orientation_ = orientation;
  setTransform(upright());
  setBounds({{0, 0}, interfaceSize(portrait_, orientation)});
  setImage(application_.screen(orientation));
}

}  // namespace host
