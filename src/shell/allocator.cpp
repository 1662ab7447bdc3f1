#include "shell/allocator.hpp"

#include <cstdlib>  // defines __GLIBC__
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace vellix {

void giveFreedPicturesBack() {
#ifdef __GLIBC__
  ::mallopt(M_MMAP_THRESHOLD, 128 << 10);
  ::mallopt(M_ARENA_MAX, 2);
#endif
}

}  // namespace vellix
