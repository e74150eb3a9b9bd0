// The shred engine: destroys a file so that what it held cannot be read back. It is overwritten in place many times,
// renamed many times, and deleted.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/RuntimeError.h"

// The characters of random names. The trailing blank is one of them.
inline constexpr std::string_view NAME_ALPHABET = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890-_ ";

// The RC4 generator of random bytes and names. Seeding rebuilds S and K; i and j continue from file to file for as long
// as the program runs.
struct KeystreamState {
  std::array<std::uint32_t, 256> S{};  // the permutation
  std::array<std::uint32_t, 256> K{};  // the key's bytes, repeated
  std::uint32_t i = 0;
  std::uint32_t j = 0;
};

// The one keystream of the program.
KeystreamState& keystream();

// How often the shredder overwrites each file with fixed bytes and with random bytes, and renames it.
inline constexpr std::int16_t SHRED_ROUNDS = 28;

// Receives the progress of one file in percent.
using ShredProgress = std::function<void(std::int16_t percent)>;

// Shreds the file at `path`: `rounds` times zeros and ones over its length, `rounds` times random bytes over its length
// and one byte more, `rounds` new names, and deletion. After each random pass calls `progress` and processes pending
// messages. Every failing step is skipped without a report: a file that cannot be written keeps its contents and may
// still be renamed; one that cannot be renamed keeps its path. The new names are relative, so the file moves to the
// current folder, and keeps its path when that is on another drive.
void ShredFile(const std::string& path, std::int16_t rounds, const ShredProgress& progress);

// Overwrites the file from its first byte on and never shortens it; a missing file is created.
void WritePass(const std::string& path, std::string_view data);

// The next n + 1 bytes of the keystream: what a random pass writes over a file of n bytes. Fails with 5 when n is
// negative and 7 when there is no memory for them; the keystream is then unchanged.
platform::Result<std::string> RandomBytes(std::int32_t n);

// A name of up to 101 characters of NAME_ALPHABET and ".tmp".
std::string RandomName();

// The RC4 key schedule. The key must not be empty.
void SeedKeystream(std::string_view key);

// The next byte of the keystream, divided by 255.
double NextKeystreamFraction();
