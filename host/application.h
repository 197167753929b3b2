#pragma once

#include <memory>
#include <string>

#include "host/application_bundle.h"
#include "platform/springboard/sb_application.h"

namespace host {

/// How far an application has come on its way to the front.
enum class ActivationState { Inactive, Activating, Animated, Active };

/// The running process of an application.
class ApplicationProcess : public NSObject {
  OBJC_CLASS(SBApplicationProcess, NSObject)
};

/// An installed application: its bundle, its process while it runs, and how it stands on its way to the
/// front.
class Application : public SBApplication {
 public:
  Application(ApplicationBundle bundle, CGFloat iconPoints)
      : bundle_(std::move(bundle)), iconPoints_(iconPoints) {}

  /// Gives SBApplication its behaviour.
  static void registerMethods();

  const ApplicationBundle& bundle() const { return bundle_; }
  const std::string& identifier() const { return bundle_.identifier(); }
  bool supports(UIInterfaceOrientation orientation) const { return bundle_.supports(orientation); }

  bool running() const { return process_ != nullptr; }
  /// The process is gone, and with it what it kept in memory.
  void processEnded();

  ActivationState state() const { return state_; }
  void setState(ActivationState state) { state_ = state; }

  const std::shared_ptr<UIImage>& icon();  ///< Read once. Never null.
  /// The application's screen for that orientation, kept while it runs. Never null.
  std::shared_ptr<UIImage> screen(UIInterfaceOrientation orientation);

 private:
  ApplicationBundle bundle_;
  CGFloat iconPoints_;
  std::shared_ptr<NSObject> process_;  // Null while it does not run.
  ActivationState state_ = ActivationState::Inactive;
  std::shared_ptr<UIImage> icon_;
  std::shared_ptr<UIImage> portraitScreen_, landscapeScreen_;
};

}  // namespace host
