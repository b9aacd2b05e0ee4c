#pragma once

#include <cstddef>
#include <functional>

namespace quor::cli {

// Runs `work(i)` for every i below `count` on up to `jobs` worker threads,
// and calls `deliver(i)` on the calling thread in increasing order of i, each
// as soon as work(i) is done; so what `deliver` writes comes out in the same
// order however the work was scheduled. `work` must only touch what belongs
// to its own i. The workers run on large stacks (see BigStackThread.h), so
// deep sources are parsed as far as on the server's thread. If no worker can
// be started at all, the calling thread does the work itself.
void runOrdered(std::size_t count, unsigned jobs, const std::function<void(std::size_t)>& work,
                const std::function<void(std::size_t)>& deliver);

}  // namespace quor::cli
