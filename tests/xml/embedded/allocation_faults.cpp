#include <tests/xml/embedded/allocation_faults.h>

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

thread_local int failFrom = 0;
thread_local int failTo = 0;
thread_local int allocations = 0;

void* allocate(std::size_t size) noexcept {
  if (failTo != 0) {
    ++allocations;
    if (allocations >= failFrom && allocations < failTo) {
      return nullptr;
    }
  }
  return std::malloc(size == 0 ? 1 : size);
}

}  // namespace

void* operator new(std::size_t size) {
  void* const memory = allocate(size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return allocate(size);
}

// The standard's own arrays come from the operators above, a sanitizer's do not.
void* operator new[](std::size_t size) {
  return operator new(size);
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return allocate(size);
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

void operator delete[](void* memory) noexcept {
  std::free(memory);
}

void operator delete[](void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

namespace quorvan::test {

AllocationFault::AllocationFault(int allocation, bool lasts) noexcept {
  allocations = 0;
  failFrom = allocation;
  failTo = lasts ? 1 << 30 : allocation + 1;
}

AllocationFault::~AllocationFault() {
  failTo = 0;
}

}  // namespace quorvan::test
