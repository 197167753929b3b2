#pragma once

#include <functional>

/// Locks the device, as the Lock button would. Without a host that can, nothing happens.
void GSEventLockDevice();

/// For the host: what locking does.
void setLockDeviceHandler(std::function<void()> handler);
