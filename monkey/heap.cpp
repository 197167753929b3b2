#include "monkey/heap.h"

#ifdef MONKEY_ADDRESS_SANITIZER
#include <sanitizer/allocator_interface.h>
#else
#include <malloc.h>
#endif

namespace monkey {

std::size_t bytesAllocated() {
#ifdef MONKEY_ADDRESS_SANITIZER
  return __sanitizer_get_current_allocated_bytes();
#else
  const auto info = mallinfo2();
  return info.uordblks + info.hblkhd;
#endif
}

}  // namespace monkey
