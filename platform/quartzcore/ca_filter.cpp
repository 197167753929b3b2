#include "platform/quartzcore/ca_filter.h"

float CAFilter::value(const std::string& key) const {
  auto entry = values_.find(key);
  return entry == values_.end() ? 0 : entry->second;
}
