#include "shredder/modMain.h"

#include <cstring>
#include <exception>
#include <type_traits>
#include <utility>

#include "platform/Conversions.h"
#include "platform/Platform.h"

namespace {

constexpr int kNameDraws = 101;
constexpr char kZeros = '\0';
constexpr char kOnes = '\xFF';

// What one store writes. A 32-bit processor has no register left to combine bytes in.
using Group = std::conditional_t<sizeof(void*) == 4, std::uint8_t, std::uint16_t>;
// Bytes per unrolled stretch of code.
constexpr std::size_t kStretch = 128 * sizeof(Group);

// Aligned to a cache line.
alignas(64) constinit KeystreamState stream;

constexpr std::uint8_t low8(std::uint32_t number) { return static_cast<std::uint8_t>(number); }

// One output step of RC4.
inline std::uint32_t nextByte(std::uint8_t& i, std::uint32_t& j) {
  ++i;
  const std::uint32_t x = stream.S[i];
  j = low8(j + x);
  const std::uint32_t y = stream.S[j];
  stream.S[j] = x;
  stream.S[i] = y;
  return stream.S[low8(x + y)];
}

// Stores the keystream's next `count` bytes in `out`. Almost every step reads a cell that an earlier step may still be
// writing; the processor predicts such dependences per instruction, so a long unrolled stretch is faster than a loop.
void fillFromKeystream(char* out, std::size_t count) {
  std::uint8_t i = low8(stream.i);
  std::uint32_t j = stream.j;
  char* const end = out + count;
  for (char* const stretchesEnd = end - count % kStretch; out != stretchesEnd; out += kStretch) {
#pragma GCC unroll 128
    for (std::size_t k = 0; k < kStretch; k += sizeof(Group)) {
      auto group = static_cast<Group>(nextByte(i, j));
      if constexpr (sizeof(Group) > 1) group |= static_cast<Group>(nextByte(i, j) << 8);
      std::memcpy(out + k, &group, sizeof(group));
    }
  }
  while (out != end) *out++ = static_cast<char>(nextByte(i, j));
  stream.i = i;
  stream.j = j;
}

// Makes `bytes` `count` bytes long, filled by `fill(bytes, count)`, and reuses the memory that it has. Fails with 5 for
// a negative count, such as the length of a file above 2 GB, and with 7 when there is not enough memory; `bytes` is
// then unchanged.
template <typename Fill>
platform::Result<void> replaceBytes(std::string& bytes, std::int64_t count, Fill fill) {
  if (count < 0) return platform::failure(platform::kInvalidCall);
  const auto size = static_cast<std::size_t>(count);
  try {
    // The library may offer more room than was requested.
    bytes.resize_and_overwrite(size, [&fill, size](char* out, std::size_t) {
      fill(out, size);
      return size;
    });
  } catch (const std::exception&) {  // not enough memory, or longer than any string
    return platform::failure(platform::kOutOfMemory);
  }
  return {};
}

platform::Result<void> replaceByKeystream(std::string& bytes, std::int32_t n) {
  if (n < 0) return platform::failure(platform::kInvalidCall);
  return replaceBytes(bytes, std::int64_t{n} + 1, fillFromKeystream);
}

// Empty when it cannot be allocated; writing an empty text changes nothing.
std::string repeated(char value, std::int32_t count) {
  std::string bytes;
  static_cast<void>(
      replaceBytes(bytes, count, [value](char* out, std::size_t size) { std::memset(out, value, size); }));
  return bytes;
}

// The clock makes the key differ from file to file; the last character is the same in every run.
std::string keystreamKey() {
  platform::Environment& environment = platform::machine().environment();
  std::string key = environment.dateText();
  key += platform::signedText(environment.secondsSinceMidnight());
  key += environment.timeText();
  key += static_cast<char>(platform::roundedHalfEven(environment.nextUniform() * 255));
  return key;
}

void writeFixedPasses(const std::string& path, std::int32_t length, std::int16_t rounds) {
  const std::string zeros = repeated(kZeros, length);
  const std::string ones = repeated(kOnes, length);
  for (std::int16_t round = 0; round < rounds; ++round) {
    WritePass(path, zeros);
    WritePass(path, ones);
  }
}

void writeRandomPasses(const std::string& path, std::int32_t length, std::int16_t rounds,
                       const ShredProgress& progress) {
  std::string data;
  for (int pass = 1; pass <= rounds; ++pass) {
    static_cast<void>(replaceByKeystream(data, length));
    WritePass(path, data);
    progress(static_cast<std::int16_t>(platform::roundedHalfEven(static_cast<double>(pass) / rounds * 100)));
    platform::machine().ui().serveEvents();
  }
}

}  // namespace

KeystreamState& keystream() { return stream; }

void ShredFile(const std::string& path, std::int16_t rounds, const ShredProgress& progress) {
  platform::FileSystem& files = platform::machine().files();
  const std::int32_t length = files.fileLength(path).value_or(0);
  writeFixedPasses(path, length, rounds);
  SeedKeystream(keystreamKey());
  writeRandomPasses(path, length, rounds, progress);
  std::string current = path;
  for (std::int16_t round = 0; round < rounds; ++round) {
    std::string name = RandomName();
    static_cast<void>(files.rename(current, name));
    current = std::move(name);
  }
  static_cast<void>(files.remove(current));
}

void WritePass(const std::string& path, std::string_view data) {
  platform::FileSystem& files = platform::machine().files();
  const platform::Result<int> number = files.freeFile();
  if (!number || !files.openBinary(*number, path)) return;
  // A file number is not a handle that the system knows, so nothing is flushed: closing writes the bytes to the disk.
  const auto handle = static_cast<platform::Handle>(*number);
  files.flushFileBuffers(handle);
  static_cast<void>(files.putBytesAt(*number, 1, data));
  files.flushFileBuffers(handle);
  files.closeFile(*number);
}

platform::Result<std::string> RandomBytes(std::int32_t n) {
  std::string bytes;
  const platform::Result<void> made = replaceByKeystream(bytes, n);
  if (!made) return std::unexpected(made.error());
  return bytes;
}

std::string RandomName() {
  std::string name;
  for (int draw = 0; draw < kNameDraws; ++draw) {
    const double scaled = NextKeystreamFraction() * static_cast<double>(NAME_ALPHABET.size());
    // The two highest bytes lie beyond the alphabet and add nothing.
    name += NAME_ALPHABET.substr(static_cast<std::size_t>(platform::roundedHalfEven(scaled)), 1);
  }
  return name + ".tmp";
}

void SeedKeystream(std::string_view key) {
  for (std::uint32_t x = 0; x < stream.S.size(); ++x) {
    stream.K[x] = static_cast<unsigned char>(key[x % key.size()]);
    stream.S[x] = x;
  }
  std::uint32_t y = 0;
  for (std::uint32_t x = 0; x < stream.S.size(); ++x) {
    y = low8(stream.S[x] + y + stream.K[x]);
    std::swap(stream.S[x], stream.S[y]);
  }
}

double NextKeystreamFraction() {
  std::uint8_t i = low8(stream.i);
  std::uint32_t j = stream.j;
  const std::uint32_t byte = nextByte(i, j);
  stream.i = i;
  stream.j = j;
  return byte / 255.0;
}
