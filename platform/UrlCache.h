// The Internet cache (WinINet's URL cache).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/Calendar.h"
#include "platform/FileSystem.h"

namespace platform {

// The bit of an entry's type that ordinary pages have.
inline constexpr std::uint32_t kNormalCacheEntry = 1;

// The fixed head of one cache entry, in the order and with the sizes of the system's own; 80 bytes in a 32-bit program.
// The texts lie behind it in the same block of memory, each closed by a NUL; one that an entry lacks is a null pointer.
struct UrlCacheEntry {
  std::uint32_t structSize = 0;  // to be set before a call: the bytes of the block that may be filled
  const char* sourceUrl = nullptr;
  const char* localFileName = nullptr;
  std::uint32_t entryType = 0;
  std::uint32_t useCount = 0;
  std::uint32_t hitRate = 0;
  std::uint32_t sizeLow = 0;
  std::uint32_t sizeHigh = 0;
  FileTime modified = {};
  FileTime expires = {};
  FileTime accessed = {};
  FileTime synchronized = {};
  const char* headerInfo = nullptr;
  std::uint32_t headerInfoSize = 0;
  const char* fileExtension = nullptr;
  std::uint32_t exemptDelta = 0;
};

// The handle returned when there is no enumeration.
inline constexpr Handle kNoUrlCache = 0;

class UrlCache {
 public:
  virtual ~UrlCache() = default;

  // FindFirstUrlCacheEntryA without a pattern. Stores the first entry in `buffer`, a block of `size` bytes, and returns
  // the handle of the enumeration; kNoUrlCache when the cache is empty, when the block is null or too small, or on
  // failure. Where there is an entry, `size` is then the number of bytes that it needs; otherwise it is unchanged.
  virtual Handle findFirstUrlCacheEntry(UrlCacheEntry* buffer, std::uint32_t& size) = 0;
  // FindNextUrlCacheEntryA. The same for the next entry, which stays the next one as long as it does not fit; false at
  // the end, and for a handle that is not a live one.
  virtual bool findNextUrlCacheEntry(Handle enumeration, UrlCacheEntry* buffer, std::uint32_t& size) = 0;
  // FindCloseUrlCache. Ends the enumeration; false when the handle is not a live one.
  virtual bool findCloseUrlCache(Handle enumeration) = 0;
  // DeleteUrlCacheEntryA. False when there is no such entry, or when it is in use.
  virtual bool deleteUrlCacheEntry(const std::string& url) = 0;

  // LocalAlloc of fixed memory: `bytes` bytes that hold anything, null when there are none. The caller owns the block.
  virtual void* localAlloc(std::size_t bytes) = 0;
  // LocalFree. Null is no block.
  virtual void localFree(void* block) = 0;
};

}  // namespace platform
