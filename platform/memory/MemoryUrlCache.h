// The Internet cache of the in-memory machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/UrlCache.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

// One entry of the cache. The URL is its key.
struct CachedPage {
  std::string url;
  std::string localFile = {};  // empty: it has none
  std::uint32_t type = kNormalCacheEntry;
  FileTime expires = {};
  FileTime accessed = {};
};

class MemoryUrlCache final : public UrlCache {
 public:
  explicit MemoryUrlCache(MemoryFaults& faults) : faults_(faults) {}

  // A page that is there already keeps its place.
  void add(CachedPage page);
  // Another program reads the page: from now on its deletion is refused.
  void use(const std::string& url) { inUse_.insert(url); }
  // In the order in which they are enumerated.
  std::vector<std::string> urls() const;
  std::size_t openEnumerations() const { return enumerations_.size(); }
  // The blocks of memory that the program has not freed.
  std::size_t blocks() const { return blocks_.size(); }

  Handle findFirstUrlCacheEntry(UrlCacheEntry* buffer, std::uint32_t& size) override;
  bool findNextUrlCacheEntry(Handle enumeration, UrlCacheEntry* buffer, std::uint32_t& size) override;
  bool findCloseUrlCache(Handle enumeration) override;
  bool deleteUrlCacheEntry(const std::string& url) override;
  void* localAlloc(std::size_t bytes) override;
  void localFree(void* block) override;

 private:
  using Place = std::uint64_t;  // grows from entry to entry

  // Stores the first entry from `place` on, and moves `place` behind it.
  bool store(Place& place, UrlCacheEntry* buffer, std::uint32_t& size) const;

  MemoryFaults& faults_;
  std::map<Place, CachedPage> pages_;
  std::unordered_map<std::string, Place> places_;
  std::unordered_set<std::string> inUse_;
  std::unordered_map<Handle, Place> enumerations_;  // where each goes on
  std::unordered_set<void*> blocks_;
  Place lastPlace_ = 0;
  Handle lastHandle_ = 0;
};

}  // namespace platform::memory
