// Times the program's scans in its real window beside other ways to read the same tree, for bench/compare_scan.sh.
// scan_window RUNS prints for each run one line: seconds of the junk scan, of the zero-byte scan, of "cmd /c dir /s /b"
// with the junk scan's patterns, and of one bare enumeration of every folder. scan_window RUNS abort prints for each
// run the seconds from a click on the abort button, the way of the pointer to it included, to the message box. The
// scans are begun by keys, because the pointer takes its time.
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

#include "driver/Driver.h"
#include "finder/junk_types.h"

namespace {

constexpr const char* kTree = "C:\\tree";
constexpr DWORD kLongestScan = 600'000;  // milliseconds

double secondsOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Every name is read, as a scan must, and nothing is done with it.
std::size_t enumerateOnce(const std::wstring& folder) {
  WIN32_FIND_DATAW found;
  const HANDLE enumeration = FindFirstFileW((folder + L"\\*").c_str(), &found);
  if (enumeration == INVALID_HANDLE_VALUE) return 0;
  std::size_t files = 0;
  for (bool more = true; more; more = FindNextFileW(enumeration, &found) != FALSE) {
    const std::wstring name = found.cFileName;
    const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (!isFolder) ++files;
    if (isFolder && name != L"." && name != L"..") files += enumerateOnce(folder + L'\\' + name);
  }
  FindClose(enumeration);
  return files;
}

std::string dirCommand() {
  std::string command = "cmd /c dir /s /b /a-d";
  std::bitset<finder::kFileTypes> all;
  for (const std::string& pattern : finder::scanPatterns(all.set(), {})) {
    if (!pattern.empty()) command += std::string(" \"") + kTree + '\\' + pattern + '"';
  }
  return command + " >nul 2>nul";
}

// From the key that begins a scan until `scan`, the button that it hides, is there again.
double secondsOfScan(const desktop::Control& scan, BYTE key) {
  return secondsOf([&] {
    desktop::pressKey(key);
    while (scan.visible()) Sleep(1);
    desktop::waitUntil(
        "the end of the scan", [&] { return scan.visible(); }, kLongestScan);
  });
}

void timeScans(const desktop::Program& program, const desktop::Window& console, int runs) {
  std::printf("%zu files\n", enumerateOnce(L"C:\\tree"));
  const desktop::Control scan = console.control("Scan");
  for (int run = 0; run < runs; ++run) {
    const double junk = secondsOfScan(scan, VK_F5);
    for (const std::string& line : console.labelTexts()) {
      if (line.starts_with("Results:")) std::fprintf(stderr, "%s\n", line.c_str());
    }
    console.control("Find 0 Byte Files").click();
    program.window("Warning!");
    const double zero = secondsOfScan(scan, VK_RETURN);
    const double dir = secondsOf([] { std::system(dirCommand().c_str()); });
    const double bare = secondsOf([] { enumerateOnce(L"C:\\tree"); });
    std::printf("%.3f %.3f %.3f %.3f\n", junk, zero, dir, bare);
    std::fflush(stdout);
  }
}

void timeAborts(const desktop::Program& program, const desktop::Window& console, int runs) {
  for (int run = 0; run < runs; ++run) {
    console.control("Scan").click();
    const desktop::Control abort = console.control("Abort Scan");
    desktop::waitUntil("the scan", [&] { return abort.visible(); });
    const double seconds = secondsOf([&] {
      abort.click();
      program.window("Scan Aborted");
    });
    program.window("Scan Aborted").closeWith("OK");
    desktop::waitUntil("the end of the scan", [&] { return console.control("Scan").visible(); });
    std::printf("%.3f\n", seconds);
    std::fflush(stdout);
  }
}

}  // namespace

int main(int count, char** arguments) {
  const int runs = count > 1 ? std::atoi(arguments[1]) : 1;
  try {
    const desktop::Program program;
    const desktop::Window console = program.console();
    console.control("Select All", ".err").click();
    console.openFolder("tree");
    const bool aborts = count > 2 && arguments[2] == std::string("abort");
    (aborts ? timeAborts : timeScans)(program, console, runs);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
