#include "platform/win32/Win32UrlCache.h"

#include <windows.h>

// Kept apart: the header needs <windows.h> before it.
#include <wininet.h>

#include "platform/win32/RunTimeBinding.h"

namespace platform::win32 {
namespace {

using SystemEntry = INTERNET_CACHE_ENTRY_INFOA;
static_assert(sizeof(UrlCacheEntry) == sizeof(SystemEntry));
static_assert(offsetof(UrlCacheEntry, localFileName) == offsetof(SystemEntry, lpszLocalFileName));
static_assert(offsetof(UrlCacheEntry, entryType) == offsetof(SystemEntry, CacheEntryType));
static_assert(offsetof(UrlCacheEntry, expires) == offsetof(SystemEntry, ExpireTime));
static_assert(offsetof(UrlCacheEntry, accessed) == offsetof(SystemEntry, LastAccessTime));
static_assert(offsetof(UrlCacheEntry, fileExtension) == offsetof(SystemEntry, lpszFileExtension));

// The functions of wininet.dll; null where the machine lacks them.
struct Library {
  decltype(&FindFirstUrlCacheEntryA) findFirst = bound<decltype(findFirst)>("FindFirstUrlCacheEntryA");
  decltype(&FindNextUrlCacheEntryA) findNext = bound<decltype(findNext)>("FindNextUrlCacheEntryA");
  decltype(&FindCloseUrlCache) findClose = bound<decltype(findClose)>("FindCloseUrlCache");
  decltype(&DeleteUrlCacheEntryA) deleteEntry = bound<decltype(deleteEntry)>("DeleteUrlCacheEntryA");

 private:
  template <typename Function>
  static Function bound(const char* name) {
    return boundAtRunTime<Function>("wininet.dll", name);
  }
};

const Library& library() {
  static const Library wininet;
  return wininet;
}

SystemEntry* systemEntry(UrlCacheEntry* entry) { return reinterpret_cast<SystemEntry*>(entry); }

}  // namespace

Handle Win32UrlCache::findFirstUrlCacheEntry(UrlCacheEntry* buffer, std::uint32_t& size) {
  if (library().findFirst == nullptr) return kNoUrlCache;
  DWORD bytes = size;
  const auto handle = reinterpret_cast<Handle>(library().findFirst(nullptr, systemEntry(buffer), &bytes));
  size = bytes;
  if (handle != kNoUrlCache) open_.insert(handle);
  return handle;
}

bool Win32UrlCache::findNextUrlCacheEntry(Handle enumeration, UrlCacheEntry* buffer, std::uint32_t& size) {
  if (!open_.contains(enumeration) || library().findNext == nullptr) return false;
  DWORD bytes = size;
  const BOOL found = library().findNext(reinterpret_cast<HANDLE>(enumeration), systemEntry(buffer), &bytes);
  size = bytes;
  return found != FALSE;
}

bool Win32UrlCache::findCloseUrlCache(Handle enumeration) {
  if (open_.erase(enumeration) == 0 || library().findClose == nullptr) return false;
  return library().findClose(reinterpret_cast<HANDLE>(enumeration)) != FALSE;
}

bool Win32UrlCache::deleteUrlCacheEntry(const std::string& url) {
  return library().deleteEntry != nullptr && library().deleteEntry(url.c_str()) != FALSE;
}

void* Win32UrlCache::localAlloc(std::size_t bytes) { return LocalAlloc(LMEM_FIXED, bytes); }

void Win32UrlCache::localFree(void* block) { LocalFree(block); }

}  // namespace platform::win32
