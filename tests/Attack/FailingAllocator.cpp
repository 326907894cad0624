// SPDX-License-Identifier: MIT
// Preloaded into a program (LD_PRELOAD), this makes chosen allocations fail. Another program says
// which ones, through a file that both have mapped: allocations.py has the same fields.

#include <dlfcn.h>
#include <fcntl.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

// The names that the C library has for its own functions, beside those that are replaced here.
extern "C" {
void* __libc_malloc(std::size_t size);                          // NOLINT
void* __libc_calloc(std::size_t count, std::size_t size);       // NOLINT
void* __libc_realloc(void* memory, std::size_t size);           // NOLINT
void* __libc_memalign(std::size_t alignment, std::size_t size); // NOLINT
void __libc_free(void* memory);                                 // NOLINT
}

namespace {

enum State : std::uint64_t {
  Off = 0,
  On = 1,
  FromMain = 2 ///< becomes On when main() begins
};

enum Kind : std::uint64_t {
  None = 0,
  One = 1,     ///< only the first one fails
  Full = 2,    ///< from then on, only memory that is released can be allocated again
  Nothing = 3, ///< all allocations fail from then on
};

struct Orders {
  std::uint64_t state;
  std::uint64_t kind;
  std::uint64_t firstFailing; ///< counted from 0
  std::uint64_t count;        ///< out: how many allocations there were
};

Orders none{};
Orders* orders = &none;

[[gnu::constructor]] void readOrders()
{
  const char* const path = std::getenv("FAILING_ALLOCATIONS");
  const int file = path == nullptr ? -1 : open(path, O_RDWR | O_CLOEXEC);
  if (file < 0)
    return;
  void* const memory = mmap(nullptr, sizeof(Orders), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  close(file);
  if (memory != MAP_FAILED)
    orders = static_cast<Orders*>(memory);
}

std::size_t live = 0;    ///< bytes in use
std::size_t ceiling = 0; ///< when memory is full

/// Counts an allocation. The program has one thread.
/// @param released  how many bytes it gives back
bool fails(std::size_t size, std::size_t released = 0)
{
  if (orders->state != On)
    return false;
  const auto number = orders->count++;
  if (number < orders->firstFailing)
    return false;
  if (number == orders->firstFailing)
    ceiling = live;
  const bool isChosen = orders->kind == Nothing ||
                        (orders->kind == One && number == orders->firstFailing) ||
                        (orders->kind == Full && live + size > ceiling + released);
  if (isChosen)
    errno = ENOMEM;
  return isChosen;
}

void* counted(void* memory)
{
  live += malloc_usable_size(memory);
  return memory;
}

int (*programsMain)(int, char**, char**) = nullptr;

int watchedMain(int count, char** arguments, char** environment)
{
  if (orders->state == FromMain)
    orders->state = On;
  const int status = programsMain(count, arguments, environment);
  orders->state = Off; // the rest belongs to the libraries
  return status;
}

}

extern "C" {

void* malloc(std::size_t size)
{
  return fails(size) ? nullptr : counted(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size)
{
  return fails(count * size) ? nullptr : counted(__libc_calloc(count, size));
}

void* realloc(void* memory, std::size_t size)
{
  const auto before = malloc_usable_size(memory);
  if (fails(size, before))
    return nullptr;
  void* const moved = __libc_realloc(memory, size);
  if (moved != nullptr || size == 0)
    live -= before;
  return counted(moved);
}

void* aligned_alloc(std::size_t alignment, std::size_t size)
{
  return fails(size) ? nullptr : counted(__libc_memalign(alignment, size));
}

void free(void* memory)
{
  live -= malloc_usable_size(memory);
  __libc_free(memory);
}

// NOLINTNEXTLINE: the C library's name and parameters
int __libc_start_main(int (*main)(int, char**, char**),
                      int count,
                      char** arguments,
                      void (*begin)(),
                      void (*end)(),
                      void (*unload)(),
                      void* stackEnd)
{
  programsMain = main;
  const auto start =
      reinterpret_cast<decltype(&__libc_start_main)>(dlsym(RTLD_NEXT, "__libc_start_main"));
  return start(watchedMain, count, arguments, begin, end, unload, stackEnd);
}
}
