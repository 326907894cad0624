// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <system_error>
#include <utility>

#if defined(_WIN32)
#include <windows.h>
#else
#include <pthread.h>
#endif

namespace Tarvik {

/// Whether a sanitizer makes frames on the stack larger.
inline constexpr bool hasSanitizer =
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    true;
#elif defined(__has_feature)
    __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#else
    false;
#endif

/// A thread with a stack of a given size, which std::thread cannot have.
class ThreadWithStack {
public:
  /// Runs the action on a new thread, waits for its end, and passes its exception on.
  /// @param stackSize  in bytes, a multiple of 64 KiB
  static void run(std::size_t stackSize, std::function<void()> action)
  {
    ThreadWithStack thread(std::move(action));
    thread.start(stackSize);
    if (thread.m_failure)
      std::rethrow_exception(thread.m_failure);
  }

private:
  explicit ThreadWithStack(std::function<void()> action) : m_action(std::move(action)) {}

  void act() noexcept
  {
    try {
      m_action();
    } catch (...) {
      m_failure = std::current_exception();
    }
  }

#if defined(_WIN32)
  void start(std::size_t stackSize)
  {
    const HANDLE thread = CreateThread(
        nullptr, stackSize,
        [](void* self) -> DWORD {
          static_cast<ThreadWithStack*>(self)->act();
          return 0;
        },
        this, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    if (thread == nullptr)
      throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
  }
#else
  void start(std::size_t stackSize)
  {
    pthread_attr_t attributes;
    check(pthread_attr_init(&attributes));
    check(pthread_attr_setstacksize(&attributes, stackSize));
    pthread_t thread{};
    check(pthread_create(
        &thread, &attributes,
        [](void* self) -> void* {
          static_cast<ThreadWithStack*>(self)->act();
          return nullptr;
        },
        this));
    check(pthread_join(thread, nullptr));
    check(pthread_attr_destroy(&attributes));
  }

  static void check(int error)
  {
    if (error != 0)
      throw std::system_error(error, std::system_category());
  }
#endif

  std::function<void()> m_action;
  std::exception_ptr m_failure;
};

}
