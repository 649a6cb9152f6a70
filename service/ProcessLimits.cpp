#include "service/ProcessLimits.h"

#include "platform/foundation/NSLog.h"

#include <algorithm>
#include <cstddef>
#include <malloc.h>
#include <pthread.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

constexpr rlim_t kDescriptorCount = 16384;
/// Only touched pages count; the format libraries recurse, and the system's own default may be anything.
constexpr std::size_t kStackByteCount = std::size_t{8} << 20;
constexpr mode_t kPrivateFiles = 077;

/// Every thread with an allocation pool of its own would keep the memory of the biggest item it ever read.
constexpr int kPoolCount = 4;
/// Blocks of this size and more go back to the system the moment they are freed.
constexpr int kLargeBlockByteCount = 1 << 20;
constexpr int kKeptByteCount = 8 << 20;

void raiseDescriptorLimit()
{
    rlimit limit{};
    bool isDone = ::getrlimit(RLIMIT_NOFILE, &limit) == 0;
    if (isDone && limit.rlim_cur < kDescriptorCount) {
        limit.rlim_cur = std::min(limit.rlim_max, kDescriptorCount);
        isDone = ::setrlimit(RLIMIT_NOFILE, &limit) == 0;
    }
    if (!isDone)
        NSLog("Couldn't raise the number of open files");
}

void setStackSize()
{
    pthread_attr_t attributes{};
    if (::pthread_attr_init(&attributes) != 0)
        return NSLog("Couldn't set the size of stacks");
    if (::pthread_attr_setstacksize(&attributes, kStackByteCount) != 0
        || ::pthread_setattr_default_np(&attributes) != 0)
        NSLog("Couldn't set the size of stacks");
    (void)::pthread_attr_destroy(&attributes); // It holds nothing.
}

// A write that cannot be done fails, where it can be reported, instead of ending the process.
void ignoreWriteSignals()
{
    for (const int number : {SIGPIPE, SIGXFSZ}) {
        if (::signal(number, SIG_IGN) == SIG_ERR)
            NSLog("Couldn't ignore signal {}", number);
    }
}

void limitAllocator()
{
    if (::mallopt(M_ARENA_MAX, kPoolCount) != 1 || ::mallopt(M_MMAP_THRESHOLD, kLargeBlockByteCount) != 1
        || ::mallopt(M_TRIM_THRESHOLD, kKeptByteCount) != 1)
        NSLog("Couldn't tune the allocator");
}

} // namespace

void adjustProcessLimits()
{
    (void)::umask(kPrivateFiles); // The former mask is of no interest.
    ignoreWriteSignals();
    raiseDescriptorLimit();
    setStackSize();
    limitAllocator();
}
