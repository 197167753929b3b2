#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/runtime/ns_object.h"

class LAActivator;

/// One occurrence of a gesture or button that the user has assigned to a listener.
class LAEvent : public NSObject {
  OBJC_CLASS(LAEvent, NSObject)
 public:
  bool handled() const { return handled_; }
  void setHandled(bool handled) { handled_ = handled; }  ///< Tells Activator that a listener consumed it.

 private:
  bool handled_ = false;
};

/// What a listener may implement; all of it is optional.
class LAListener {
 public:
  virtual ~LAListener() = default;
  virtual void receiveEvent(LAActivator&, LAEvent&) {}
  virtual void abortEvent(LAActivator&, LAEvent&) {}
  virtual void receiveDeactivateEvent(LAActivator&, LAEvent&) {}
  virtual void otherListenerDidHandleEvent(LAActivator&, LAEvent&) {}
};

/// The registry of listeners, and the way an event takes to them.
class LAActivator : public NSObject {
  OBJC_CLASS(LAActivator, NSObject)
 public:
  static LAActivator& sharedInstance();

  /// The registry keeps the listener alive. The same name again replaces it.
  void registerListener(std::shared_ptr<LAListener> listener, const std::string& name);

  /// Each sends the event to the listeners in order of their names. receive stops at the first that handles
  /// it and tells the others so; abort and deactivate reach all.
  void sendEvent(LAEvent& event);
  void sendAbort(LAEvent& event);
  void sendDeactivateEvent(LAEvent& event);

 private:
  std::map<std::string, std::shared_ptr<LAListener>> listeners_;
};
