#pragma once

#include <optional>

#include "platform/coregraphics/cg_affine_transform.h"
#include "platform/uikit/ui_orientation.h"

/// How an interface lies on the portrait screen.
namespace host {

/// The interface that stands upright on a device held so; nothing for one that lies flat.
std::optional<UIInterfaceOrientation> interfaceForDevice(UIDeviceOrientation orientation);

/// The interface's size, given the screen's portrait size.
CGSize interfaceSize(CGSize screen, UIInterfaceOrientation orientation);

/// Turns the interface, about its middle, from upright on the portrait screen to upright for the holder.
CGAffineTransform uprightTransform(UIInterfaceOrientation orientation);

}  // namespace host
