#include "apps/kelvarin/Memory.h"

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <limits>
#include <new>
#include <string_view>

#include "apps/kelvarin/Status.h"

namespace {

constexpr std::uintptr_t kLargePage = 2U << 20;
/// Address space, of which only what is used costs anything.
constexpr int kAhead = 256 << 20;
/// The largest that the C library takes for it.
constexpr int kLargestBlock = 32 << 20;

[[noreturn]] void EndWithoutMemory() {
  constexpr std::string_view kMessage = "kelvarin: needs more memory than there is\n";
  try {
    if (const std::exception_ptr thrown = std::current_exception()) std::rethrow_exception(thrown);
  } catch (const std::bad_alloc&) {
    static_cast<void>(!write(STDERR_FILENO, kMessage.data(), kMessage.size()));
    std::_Exit(kUnreadable);
  } catch (...) {
  }
  std::abort();
}

}  // namespace

void TakeMemoryInLargePages() {
  // One stretch that grows, so that all of it can be asked for in large pages.
  if (mallopt(M_MMAP_THRESHOLD, kLargestBlock) == 0 || mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max()) == 0)
    return;
  // A text that is larger would come in small pages.
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TOP_PAD, kAhead);
  void* const grown = std::malloc(kLargePage);
  mallopt(M_TOP_PAD, static_cast<int>(kLargePage));
  if (grown == nullptr) return;
  const std::uintptr_t begin = (reinterpret_cast<std::uintptr_t>(grown) + kLargePage - 1) & ~(kLargePage - 1);
  const auto end = reinterpret_cast<std::uintptr_t>(sbrk(0)) & ~(kLargePage - 1);
  // Where the system has no large pages to give, all goes as before.
  if (begin < end) static_cast<void>(madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE));
  std::free(grown);
}

void EndWhereMemoryRunsOut() { std::set_terminate(&EndWithoutMemory); }
