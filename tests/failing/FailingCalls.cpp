// Loaded before everything else into the real program, lets one request to the system fail: the n-th piece of memory
// that C++ asks for, or the n-th call that writes, makes, renames or secures a file. Which, the environment says:
//   KVX_FAIL   "memory" or "disk"
//   KVX_FAIL_AT   n, counted from 1; with 0 none fails
//   KVX_FAIL_COUNT   a file that gets the number of requests made, when the program ends by itself
// What is asked for before main() counts for nothing: there is nobody to catch it.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

class Requests {
 public:
  explicit Requests(const char* kind) {
    const char* const wanted = std::getenv("KVX_FAIL");
    const char* const at = std::getenv("KVX_FAIL_AT");
    counts_ = wanted != nullptr && std::strcmp(wanted, kind) == 0;
    failing_ = counts_ && at != nullptr ? std::strtol(at, nullptr, 10) : 0;
  }
  ~Requests() {
    const char* const file = counts_ ? std::getenv("KVX_FAIL_COUNT") : nullptr;
    if (file == nullptr) return;
    const long made = made_;
    if (std::FILE* const out = std::fopen(file, "w")) {
      std::fprintf(out, "%ld", made);
      std::fclose(out);
    }
  }
  bool Fails() { return counts_ && isRunning && ++made_ == failing_; }

  static inline std::atomic<bool> isRunning{false};

 private:
  bool counts_{false};
  long failing_{0};
  std::atomic<long> made_{0};
};

bool MemoryFails() {
  static Requests requests("memory");
  return requests.Fails();
}

bool DiskFails() {
  static Requests requests("disk");
  if (!requests.Fails()) return false;
  errno = ENOSPC;
  return true;
}

template <typename Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

using Main = int(int, char**, char**);
Main* theMain = nullptr;

int RunMain(int count, char** arguments, char** environment) {
  Requests::isRunning = true;
  const int status = theMain(count, arguments, environment);
  Requests::isRunning = false;
  return status;
}

bool IsStandard(int file) { return file <= STDERR_FILENO; }

}  // namespace

void* operator new(std::size_t size) {
  void* const memory = MemoryFails() ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  const auto unit = static_cast<std::size_t>(alignment);
  void* const memory = MemoryFails() ? nullptr : std::aligned_alloc(unit, (size + unit - 1) / unit * unit);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

extern "C" {

// The C library's own start of a program.
int __libc_start_main(Main* main, int count, char** arguments, void (*init)(), void (*fini)(), void (*loader)(),
                      void* stack) {
  using Start = int(Main*, int, char**, void (*)(), void (*)(), void (*)(), void*);
  theMain = main;
  return Next<Start>("__libc_start_main")(&RunMain, count, arguments, init, fini, loader, stack);
}

ssize_t write(int file, const void* bytes, size_t size) {
  static auto* const next = Next<ssize_t(int, const void*, size_t)>("write");
  return !IsStandard(file) && DiskFails() ? -1 : next(file, bytes, size);
}

ssize_t writev(int file, const iovec* pieces, int count) {
  static auto* const next = Next<ssize_t(int, const iovec*, int)>("writev");
  return !IsStandard(file) && DiskFails() ? -1 : next(file, pieces, count);
}

int fsync(int file) {
  static auto* const next = Next<int(int)>("fsync");
  return DiskFails() ? -1 : next(file);
}

int rename(const char* from, const char* to) {
  static auto* const next = Next<int(const char*, const char*)>("rename");
  return DiskFails() ? -1 : next(from, to);
}

int mkdir(const char* name, mode_t mode) {
  static auto* const next = Next<int(const char*, mode_t)>("mkdir");
  return DiskFails() ? -1 : next(name, mode);
}

int fchmod(int file, mode_t mode) {
  static auto* const next = Next<int(int, mode_t)>("fchmod");
  return DiskFails() ? -1 : next(file, mode);
}

int open(const char* name, int flags, ...) {
  static auto* const next = Next<int(const char*, int, ...)>("open");
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  return (flags & O_CREAT) != 0 && DiskFails() ? -1 : next(name, flags, mode);
}

}  // extern "C"
