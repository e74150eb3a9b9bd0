#include "platform/memory/MemoryUrlCache.h"

#include <cstdlib>
#include <cstring>
#include <utility>

namespace platform::memory {
namespace {

// What fresh memory holds, so that a program that takes it for zeros is found out.
constexpr int kGarbage = 0xCD;

// Puts a text with its NUL behind the ones before it; null for one that the entry lacks.
const char* append(const std::string& text, char*& end) {
  if (text.empty()) return nullptr;
  char* const start = end;
  std::memcpy(start, text.c_str(), text.size() + 1);
  end += text.size() + 1;
  return start;
}

}  // namespace

void MemoryUrlCache::add(CachedPage page) {
  const auto [known, isNew] = places_.try_emplace(page.url, lastPlace_ + 1);
  if (isNew) ++lastPlace_;
  pages_[known->second] = std::move(page);
}

std::vector<std::string> MemoryUrlCache::urls() const {
  std::vector<std::string> urls;
  urls.reserve(pages_.size());
  for (const auto& [place, page] : pages_) urls.push_back(page.url);
  return urls;
}

bool MemoryUrlCache::store(Place& place, UrlCacheEntry* buffer, std::uint32_t& size) const {
  const auto at = pages_.lower_bound(place);
  if (at == pages_.end()) return false;
  const CachedPage& page = at->second;
  const auto needed =
      static_cast<std::uint32_t>(sizeof(UrlCacheEntry) + page.url.size() + 1 + page.localFile.size() + 1);
  const bool fits = buffer != nullptr && size >= needed;
  size = needed;
  if (!fits) return false;

  char* end = reinterpret_cast<char*>(buffer + 1);
  *buffer = UrlCacheEntry{.structSize = needed, .entryType = page.type};
  buffer->sourceUrl = append(page.url, end);
  buffer->localFileName = append(page.localFile, end);
  buffer->expires = page.expires;
  buffer->accessed = page.accessed;
  place = at->first + 1;
  return true;
}

Handle MemoryUrlCache::findFirstUrlCacheEntry(UrlCacheEntry* buffer, std::uint32_t& size) {
  if (faults_.nextFault("findFirstUrlCacheEntry")) return kNoUrlCache;
  Place place = 0;
  if (!store(place, buffer, size)) return kNoUrlCache;
  enumerations_[++lastHandle_] = place;
  return lastHandle_;
}

bool MemoryUrlCache::findNextUrlCacheEntry(Handle enumeration, UrlCacheEntry* buffer, std::uint32_t& size) {
  if (faults_.nextFault("findNextUrlCacheEntry")) return false;
  const auto found = enumerations_.find(enumeration);
  return found != enumerations_.end() && store(found->second, buffer, size);
}

// A closing that fails closes all the same.
bool MemoryUrlCache::findCloseUrlCache(Handle enumeration) {
  const bool closed = enumerations_.erase(enumeration) > 0;
  return !faults_.nextFault("findCloseUrlCache") && closed;
}

bool MemoryUrlCache::deleteUrlCacheEntry(const std::string& url) {
  if (faults_.nextFault("deleteUrlCacheEntry") || inUse_.contains(url)) return false;
  const auto found = places_.find(url);
  if (found == places_.end()) return false;
  pages_.erase(found->second);
  places_.erase(found);
  return true;
}

void* MemoryUrlCache::localAlloc(std::size_t bytes) {
  if (faults_.nextFault("localAlloc")) return nullptr;
  void* block = std::malloc(bytes);
  if (block == nullptr) return nullptr;
  std::memset(block, kGarbage, bytes);
  blocks_.insert(block);
  return block;
}

// Memory belongs to the process: a block may come from the machine that was in use before.
void MemoryUrlCache::localFree(void* block) {
  faults_.nextFault("localFree");
  blocks_.erase(block);
  std::free(block);
}

}  // namespace platform::memory
