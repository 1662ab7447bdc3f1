// How the memory of the process is taken and given back.
#pragma once

namespace vellix {

// Ahead of the first thread. Left to itself the allocator learns from the first freed page to keep
// blocks of that size, and the pictures of pages long gone stay in memory. And each thread has room
// of its own, which keeps what it once took: two serve all.
void giveFreedPicturesBack();

}  // namespace vellix
