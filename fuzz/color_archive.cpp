// Keyed archives of colours: whatever is read is a colour, and is the same once more archived and read.

#include "fuzz/input.h"
#include "fuzz/promise.h"
#include "platform/uikit/ui_color_archive.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const auto color = unarchiveColorWithData(fuzz::dataOf(bytes, size));
  if (!color) return 0;
  const CGColor value = color->cgColor();
  for (const CGFloat component : {value.red, value.green, value.blue, value.alpha})
    fuzz::require(component >= 0 && component <= 1, "components lie between 0 and 1");
  fuzz::require(unarchiveColorWithData(archivedDataWithRootObject(*color)) == color,
                "a colour survives its archive");
  return 0;
}
