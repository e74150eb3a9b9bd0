#include "shredder/modMain.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <type_traits>
#include <utility>

#include "platform/Conversions.h"
#include "platform/FolderHold.h"
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

// A pass over at most this many bytes is one write of one buffer; a longer one goes out in blocks of this size.
constexpr std::uint64_t kLongestWrite = std::uint64_t{64} << 20;

// Makes `bytes` `count` bytes long, filled by `fill(bytes, count)`, and reuses the memory that it has. Returns false
// when there is not enough memory; `bytes` is then unchanged.
template <typename Fill>
bool replaceBytes(std::string& bytes, std::size_t count, Fill fill) {
  try {
    // The library may offer more room than was requested.
    bytes.resize_and_overwrite(count, [&fill, count](char* out, std::size_t) {
      fill(out, count);
      return count;
    });
  } catch (const std::exception&) {  // not enough memory, or longer than any string
    return false;
  }
  return true;
}

// Writes `length` bytes from the file's first byte on, in blocks that `fill(bytes, count)` makes one after the other.
template <typename Fill>
void writeInBlocks(const std::string& path, std::uint64_t length, std::string& block, Fill fill) {
  platform::FileSystem& files = platform::machine().files();
  const platform::Result<int> number = files.freeFile();
  if (!number || !files.openBinary(*number, path)) return;
  std::uint64_t blockSize = kLongestWrite;
  for (std::uint64_t done = 0; done < length && blockSize > 0;) {
    const std::uint64_t count = std::min(blockSize, length - done);
    if (!replaceBytes(block, static_cast<std::size_t>(count), fill)) {
      blockSize = count / 2;  // not enough memory
      continue;
    }
    static_cast<void>(files.putBytesAt(*number, done + 1, block));
    done += count;
  }
  files.closeFile(*number);
}

// Makes the bytes of a pass that is one write; returns false when it must go out in blocks.
template <typename Fill>
bool fitsOneWrite(std::string& buffer, std::uint64_t length, Fill fill) {
  return length <= kLongestWrite && replaceBytes(buffer, static_cast<std::size_t>(length), fill);
}

auto repeated(char value) {
  return [value](char* out, std::size_t count) { std::memset(out, value, count); };
}

// Whether the path is that of a folder, a link or a device, which are never shredded. A missing file is not.
bool isNoPlainFile(const std::string& path) {
  const std::uint32_t attributes = platform::machine().files().getFileAttributes(path);
  constexpr std::uint32_t kNoPlainFile = platform::kDirectory | platform::kDevice | platform::kReparsePoint;
  return attributes != platform::kInvalidAttributes && (attributes & kNoPlainFile) != 0;
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

void writeFixedPasses(const std::string& path, std::uint64_t length, std::int16_t rounds) {
  std::string zeros;
  std::string ones;
  const bool oneWrite = fitsOneWrite(zeros, length, repeated(kZeros)) && fitsOneWrite(ones, length, repeated(kOnes));
  for (std::int16_t round = 0; round < rounds; ++round) {
    if (oneWrite) {
      WritePass(path, zeros);
      WritePass(path, ones);
    } else {
      writeInBlocks(path, length, zeros, repeated(kZeros));
      writeInBlocks(path, length, ones, repeated(kOnes));
    }
  }
}

void writeRandomPasses(const std::string& path, std::uint64_t length, std::int16_t rounds,
                       const ShredProgress& progress) {
  std::string data;
  for (int pass = 1; pass <= rounds; ++pass) {
    if (fitsOneWrite(data, length + 1, fillFromKeystream)) {
      WritePass(path, data);
    } else {
      writeInBlocks(path, length + 1, data, fillFromKeystream);
    }
    progress(static_cast<std::int16_t>(platform::roundedHalfEven(static_cast<double>(pass) / rounds * 100)));
    platform::machine().ui().serveEvents();
  }
}

}  // namespace

KeystreamState& keystream() { return stream; }

void ShredFile(const std::string& path, std::int16_t rounds, const ShredProgress& progress) {
  platform::FileSystem& files = platform::machine().files();
  if (isNoPlainFile(path)) return;
  platform::FolderHold hold(files, path.substr(0, path.rfind('\\') + 1), platform::Links::kAll);
  // A folder that cannot be held must not keep its files from being shredded.
  static_cast<void>(hold.holdAbove(path));
  const std::uint64_t length = files.fileSize(path).value_or(0);
  writeFixedPasses(path, length, rounds);
  SeedKeystream(keystreamKey());
  writeRandomPasses(path, length, rounds, progress);
  // While messages were processed, the path may have become something else, which must not be renamed.
  if (isNoPlainFile(path)) return;
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
  if (n < 0) return platform::failure(platform::kInvalidCall);
  std::string bytes;
  if (!replaceBytes(bytes, static_cast<std::size_t>(n) + 1, fillFromKeystream)) {
    return platform::failure(platform::kOutOfMemory);
  }
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
