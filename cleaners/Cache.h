// One walk over the Internet cache at a time: the entry that it stands on, and deleting entries.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Calendar.h"
#include "platform/RuntimeError.h"

// Ends the walk before, if there was one, and goes to the first entry. False when there is none, or on failure.
// FindCloseUrlCache, FindFirstUrlCacheEntryA, LocalAlloc, LocalFree.
bool CacheFindFirst();
// Goes to the next entry. False at the end, on failure, and when the walk has been closed. FindNextUrlCacheEntryA.
bool CacheFindNext();
// Ends the walk; the entry stays as it is. FindCloseUrlCache.
void CacheFindClose();

// What the entry holds that the walk stands on. Texts that it lacks are empty.

// The type flags.
std::uint32_t CacheEntryType();
std::string CacheLocalFileName();
std::string CacheSourceUrl();
// Times are UTC, to the second. A time that is no date before the year 10000 gives the date 0 for the expiry (many
// entries never expire), and fails with 13 for the last access. FileTimeToSystemTime.
platform::Date CacheExpires();
platform::Result<platform::Date> CacheLastAccess();

// Deletes an entry by its source URL. False when the system refuses. DeleteUrlCacheEntryA.
bool CacheDeleteEntry(const std::string& url);
