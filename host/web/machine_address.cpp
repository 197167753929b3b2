#include "host/web/machine_address.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

#include <memory>

namespace host {

std::optional<std::string> machineAddress() {
  ifaddrs* list = nullptr;
  if (getifaddrs(&list) != 0) return std::nullopt;
  const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> owner(list, &freeifaddrs);
  for (const ifaddrs* each = list; each; each = each->ifa_next) {
    const bool isReachable = (each->ifa_flags & IFF_UP) && !(each->ifa_flags & IFF_LOOPBACK);
    if (!isReachable || !each->ifa_addr || each->ifa_addr->sa_family != AF_INET) continue;
    char text[INET_ADDRSTRLEN];
    const auto* address = reinterpret_cast<const sockaddr_in*>(each->ifa_addr);
    if (inet_ntop(AF_INET, &address->sin_addr, text, sizeof text)) return text;
  }
  return std::nullopt;
}

}  // namespace host
