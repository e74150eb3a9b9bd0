// One enumeration of the Internet cache at a time, and the deletion of entries.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Calendar.h"
#include "platform/RuntimeError.h"
#include "platform/UrlCache.h"

class Cache {
 public:
  Cache() = default;
  // Frees the last entry; the enumeration is not closed.
  ~Cache();
  Cache(const Cache&) = delete;
  Cache& operator=(const Cache&) = delete;

  // Closes the previous enumeration, if there was one, and reads the first entry. Returns false when there is none, or
  // on failure. FindCloseUrlCache, FindFirstUrlCacheEntryA, LocalAlloc, LocalFree.
  bool CacheFindFirst();
  // Reads the next entry. Returns false at the end, on failure, and after CacheFindClose. FindNextUrlCacheEntryA.
  bool CacheFindNext();
  // Closes the enumeration; the current entry stays. FindCloseUrlCache.
  void CacheFindClose();

  // The current entry. Texts that it lacks are empty.

  // The type flags.
  std::uint32_t CacheEntryType() const { return CacheEntry.entryType; }
  std::string CacheLocalFileName() const;
  std::string CacheSourceUrl() const;
  // UTC, to the second. An expiry that is no date before the year 10000 returns the date 0, because many entries never
  // expire; such a last access fails with 13. FileTimeToSystemTime.
  platform::Date CacheExpires() const;
  platform::Result<platform::Date> CacheLastAccess() const;

  // Deletes the entry with this source URL. Returns false when the system refuses. DeleteUrlCacheEntryA.
  bool CacheDeleteEntry(const std::string& url);

 private:
  bool renewBuffer(std::uint32_t size);

  // Keeps its value after the enumeration has been closed; 0 when there never was one.
  platform::Handle CacheFindHandle = platform::kNoUrlCache;
  // Owned. Freed when the next entry is read.
  platform::UrlCacheEntry* CacheEntryBuffer = nullptr;
  // The fixed part of the last entry that was found. Its texts lie in the buffer.
  platform::UrlCacheEntry CacheEntry;
};
