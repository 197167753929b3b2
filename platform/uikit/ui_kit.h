#pragma once

/// Enters UIKit's classes and their default methods into the runtime, so that they can be found by name and
/// their methods replaced. A host calls it at its start, before it loads anything that looks classes up;
/// further calls change nothing, so replaced methods stay replaced.
void registerUIKitClasses();
