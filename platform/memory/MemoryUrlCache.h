// The Internet cache of the in-memory machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
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

class MemoryUrlCache : public UrlCache {
 public:
  explicit MemoryUrlCache(MemoryFaults& faults) : faults_(faults) {}

  // A page that is there already keeps its place.
  void add(CachedPage page) {
    const auto [known, isNew] = places_.try_emplace(page.url, lastPlace_ + 1);
    if (isNew) ++lastPlace_;
    pages_[known->second] = std::move(page);
  }
  // Another program reads the page: from now on its deletion is refused.
  void use(const std::string& url) { inUse_.insert(url); }
  // In the order in which they are enumerated.
  std::vector<std::string> urls() const {
    std::vector<std::string> urls;
    for (const auto& [place, page] : pages_) urls.push_back(page.url);
    return urls;
  }
  std::size_t openEnumerations() const { return enumerations_.size(); }
  // The blocks of memory that the program has not freed.
  std::size_t blocks() const { return blocks_.size(); }

  Handle findFirstUrlCacheEntry(UrlCacheEntry* buffer, std::uint32_t& size) override {
    if (faults_.nextFault("findFirstUrlCacheEntry")) return kNoUrlCache;
    Place place = 0;
    if (!store(place, buffer, size)) return kNoUrlCache;
    enumerations_[++lastHandle_] = place;
    return lastHandle_;
  }
  bool findNextUrlCacheEntry(Handle enumeration, UrlCacheEntry* buffer, std::uint32_t& size) override {
    if (faults_.nextFault("findNextUrlCacheEntry")) return false;
    const auto found = enumerations_.find(enumeration);
    return found != enumerations_.end() && store(found->second, buffer, size);
  }
  // A closing that fails closes all the same.
  bool findCloseUrlCache(Handle enumeration) override {
    const bool closed = enumerations_.erase(enumeration) > 0;
    return !faults_.nextFault("findCloseUrlCache") && closed;
  }
  bool deleteUrlCacheEntry(const std::string& url) override {
    if (faults_.nextFault("deleteUrlCacheEntry") || inUse_.contains(url)) return false;
    const auto found = places_.find(url);
    if (found == places_.end()) return false;
    pages_.erase(found->second);
    places_.erase(found);
    return true;
  }
  void* localAlloc(std::size_t bytes) override {
    if (faults_.nextFault("localAlloc")) return nullptr;
    void* const block = std::malloc(bytes);
    if (block == nullptr) return nullptr;
    // A program that takes fresh memory for zeros must fail.
    std::memset(block, 0xCD, bytes);
    blocks_.insert(block);
    return block;
  }
  // Memory belongs to the process: a block may come from the machine that was in use before.
  void localFree(void* block) override {
    faults_.nextFault("localFree");
    blocks_.erase(block);
    std::free(block);
  }

 protected:
  // Puts a text with its NUL behind the ones before it; null for one that the entry lacks.
  static const char* append(const std::string& text, char*& end) {
    if (text.empty()) return nullptr;
    char* const start = end;
    std::memcpy(start, text.c_str(), text.size() + 1);
    end += text.size() + 1;
    return start;
  }

 private:
  using Place = std::uint64_t;  // grows from entry to entry

  // Stores the first entry from `place` on, and moves `place` behind it.
  bool store(Place& place, UrlCacheEntry* buffer, std::uint32_t& size) const {
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

  MemoryFaults& faults_;
  std::map<Place, CachedPage> pages_;
  std::unordered_map<std::string, Place> places_;
  std::unordered_set<std::string> inUse_;
  std::unordered_map<Handle, Place> enumerations_;  // the place of the next entry
  std::unordered_set<void*> blocks_;
  Place lastPlace_ = 0;
  Handle lastHandle_ = 0;
};

}  // namespace platform::memory
