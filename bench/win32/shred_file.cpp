// Times the shred engine as built for the program, on Windows or Wine, and prints the result:
//
//   shred_file keystream MEGABYTES   bytes of keystream per second of processor time
//   shred_file shred PATH [ROUNDS]   elapsed seconds for shredding the file, which is deleted
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "platform/win32/Win32Machine.h"
#include "platform/win32/ui/Win32Ui.h"
#include "shredder/modMain.h"

namespace {

constexpr std::int32_t kMegabyte = 1 << 20;
constexpr std::int32_t kBlock = 1 << 14;

double seconds(const FILETIME& time) {
  constexpr double kSecondsPerUnit = 1e-7;
  return (4294967296.0 * time.dwHighDateTime + time.dwLowDateTime) * kSecondsPerUnit;
}

double processorSeconds() {
  FILETIME created;
  FILETIME ended;
  FILETIME kernel;
  FILETIME user;
  GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
  return seconds(kernel) + seconds(user);
}

int timeKeystream(int megabytes) {
  SeedKeystream("benchmark");
  const double start = processorSeconds();
  for (int i = 0; i < megabytes * (kMegabyte / kBlock); ++i) {
    if (!RandomBytes(kBlock - 1)) return EXIT_FAILURE;
  }
  std::printf("%.0f\n", static_cast<double>(megabytes) * kMegabyte / (processorSeconds() - start));
  return EXIT_SUCCESS;
}

int timeShredding(const std::string& path, std::int16_t rounds) {
  SetCurrentDirectoryA(path.substr(0, path.rfind('\\') + 1).c_str());
  platform::win32::Win32Machine machine(std::make_unique<platform::win32::Win32Ui>());
  const platform::ScopedMachine use(machine);
  const auto start = std::chrono::steady_clock::now();
  ShredFile(path, rounds, [](std::int16_t) {});
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
  std::printf("%.3f\n", elapsed.count());
  return GetFileAttributesA(path.c_str()) == INVALID_FILE_ATTRIBUTES ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int count, char** arguments) {
  const std::string_view what = count == 3 || count == 4 ? arguments[1] : "";
  if (what == "keystream") return timeKeystream(std::atoi(arguments[2]));
  const auto rounds = static_cast<std::int16_t>(count == 4 ? std::atoi(arguments[3]) : SHRED_ROUNDS);
  if (what == "shred") return timeShredding(arguments[2], rounds);
  std::puts("usage: shred_file keystream MEGABYTES | shred PATH [ROUNDS]");
  return EXIT_FAILURE;
}
