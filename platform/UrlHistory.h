// The history of visited pages: a COM object whose methods are called by their positions in its function table.
#pragma once

#include <array>
#include <cstdint>

#include "platform/FileSystem.h"

namespace platform {

// The name of a class or an interface.
struct Guid {
  std::uint32_t first = 0;
  std::uint16_t second = 0;
  std::uint16_t third = 0;
  std::array<std::uint8_t, 8> rest{};
  bool operator==(const Guid&) const = default;
};

// The class context: in this process, as a server library or as a handler library.
inline constexpr std::uint32_t kInProcess = 3;

class UrlHistory {
 public:
  virtual ~UrlHistory() = default;

  // CoCreateInstance without an outer object. Stores in `object` a new object of the class, seen through the interface;
  // it lives until its Release is called. Returns 0, or the failure's code, and leaves `object` as it was.
  virtual std::int32_t coCreateInstance(const Guid& classId, std::uint32_t context, const Guid& interfaceId,
                                        Handle& object) = 0;
  // DispCallFunc. Calls the method in the `slot`-th place (0-based) of the object's function table, which takes nothing
  // and returns a 32-bit number, and returns its result.
  virtual std::int32_t dispCallFunc(Handle object, std::uint32_t slot) = 0;
};

}  // namespace platform
