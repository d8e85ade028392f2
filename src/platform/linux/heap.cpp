#include "platform/linux/heap.h"

#include <malloc.h>

namespace plimo {

void keepFreedMemory() {
  ::mallopt(M_TRIM_THRESHOLD, 8 << 20);
  ::mallopt(M_MMAP_THRESHOLD, 4 << 20);
}

}  // namespace plimo
