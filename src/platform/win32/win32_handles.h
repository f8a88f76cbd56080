// Owners of Win32 handles: each releases its handle with the right call when
// it goes out of scope, so no early return or exception leaks a kernel
// object, a registry key, a find handle, a device context or a GDI object.
#pragma once

#include <windows.h>

#include <utility>

namespace velmora {

// One owned handle, released by Traits::Close, never released when it holds
// Traits::Invalid() or null.
template <class Traits>
class Scoped {
 public:
  using H = typename Traits::Handle;

  Scoped() = default;
  explicit Scoped(H handle) : handle_(handle) {}
  ~Scoped() { reset(); }
  Scoped(Scoped&& other) noexcept : handle_(other.release()) {}
  Scoped& operator=(Scoped&& other) noexcept {
    if (this != &other) reset(other.release());
    return *this;
  }
  Scoped(const Scoped&) = delete;
  Scoped& operator=(const Scoped&) = delete;

  H get() const { return handle_; }
  explicit operator bool() const { return handle_ != Traits::Invalid() && handle_ != H{}; }
  // For calls that return the handle through a pointer.
  H* receive() {
    reset();
    return &handle_;
  }
  H release() { return std::exchange(handle_, Traits::Invalid()); }
  void reset(H handle = Traits::Invalid()) {
    if (*this) Traits::Close(handle_);
    handle_ = handle;
  }

 private:
  H handle_ = Traits::Invalid();
};

template <class H, BOOL(WINAPI* CloseCall)(H)>
struct NullIsInvalid {
  using Handle = H;
  static H Invalid() { return nullptr; }
  static void Close(H handle) { CloseCall(handle); }
};

template <BOOL(WINAPI* CloseCall)(HANDLE)>
struct MinusOneIsInvalid {
  using Handle = HANDLE;
  static HANDLE Invalid() { return INVALID_HANDLE_VALUE; }
  static void Close(HANDLE handle) { CloseCall(handle); }
};

struct RegistryKeyTraits {
  using Handle = HKEY;
  static HKEY Invalid() { return nullptr; }
  static void Close(HKEY key) { RegCloseKey(key); }
};

template <class H>
struct GdiObjectTraits {
  using Handle = H;
  static H Invalid() { return nullptr; }
  static void Close(H object) { DeleteObject(object); }
};

// Processes, threads, events and the like (null when invalid).
using ScopedHandle = Scoped<NullIsInvalid<HANDLE, CloseHandle>>;
// Files, whose invalid value is INVALID_HANDLE_VALUE.
using ScopedMemoryDC = Scoped<NullIsInvalid<HDC, DeleteDC>>;
using ScopedFile = Scoped<MinusOneIsInvalid<CloseHandle>>;
using ScopedFind = Scoped<MinusOneIsInvalid<FindClose>>;
using ScopedKey = Scoped<RegistryKeyTraits>;
using ScopedFont = Scoped<GdiObjectTraits<HFONT>>;
using ScopedPen = Scoped<GdiObjectTraits<HPEN>>;
using ScopedBrush = Scoped<GdiObjectTraits<HBRUSH>>;
using ScopedRegion = Scoped<GdiObjectTraits<HRGN>>;

// A window's device context from GetDC, given back with ReleaseDC.
class ScopedWindowDC {
 public:
  explicit ScopedWindowDC(HWND window) : window_(window), dc_(GetDC(window)) {}
  ~ScopedWindowDC() {
    if (dc_) ReleaseDC(window_, dc_);
  }
  ScopedWindowDC(const ScopedWindowDC&) = delete;
  ScopedWindowDC& operator=(const ScopedWindowDC&) = delete;

  HDC get() const { return dc_; }
  explicit operator bool() const { return dc_ != nullptr; }

 private:
  HWND window_;
  HDC dc_;
};

// An object selected into a device context; the one it replaced goes back
// in when the scope ends, so the caller may then delete its own object.
class ScopedSelection {
 public:
  ScopedSelection(HDC dc, HGDIOBJ object) : dc_(dc), old_(dc && object ? SelectObject(dc, object) : nullptr) {}
  ~ScopedSelection() {
    if (old_) SelectObject(dc_, old_);
  }
  ScopedSelection(const ScopedSelection&) = delete;
  ScopedSelection& operator=(const ScopedSelection&) = delete;

 private:
  HDC dc_;
  HGDIOBJ old_;
};

}  // namespace velmora
