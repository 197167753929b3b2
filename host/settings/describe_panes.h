#pragma once

#include <string>
#include <vector>

#include "host/json_text.h"
#include "host/settings/preference_pane.h"

namespace host {

/// Panes as pages get them (docs/web.md, "settings"), with the values that the files hold now. `bundles` are
/// the applications that an AppListCell has a switch for.
Json describePanes(const std::vector<PreferencePane>& panes, const std::vector<std::string>& bundles);

}  // namespace host
