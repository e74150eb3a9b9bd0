#include "finder/junk_types.h"

#include <algorithm>
#include <charconv>

#include "platform/Conversions.h"
#include "platform/Platform.h"

namespace finder {
namespace {

constexpr std::int32_t kBytesPerKb = 1024;

constexpr const char* kSetupBackups = "Temporary Setup and Application Backup Files";
constexpr const char* kApplicationBackups = "Application Backup Files";

// Compared with the name in capitals; no name in capitals equals "MYOB.bak", so that one is never protected.
constexpr std::array<std::string_view, 7> kProtectedInCapitals = {
    "DATA.BAK", "NTUSER.BAK", "USRCLASS.BAK", "SYSTEM.BAK", "SOFTWARE.BAK", "OPA11.BAK", "MYOB.bak"};
constexpr std::array<std::string_view, 6> kProtectedAsFound = {"SAM.bak",        "USER.bak",         "default.bak",
                                                               "opera6.adr.bak", "contacts.adr.bak", "SECURITY.bak"};
constexpr std::array<std::string_view, 6> kKeptEmpty = {"IO.SYS",     "MSDOS.SYS",   "WIN.INI",
                                                        "SYSTEM.INI", "Desktop.ini", "Boot.ini"};

template <typename Names>
bool contains(const Names& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

std::string patternOf(const FileType& type) {
  return type.pattern == nullptr ? std::string("*") + type.caption : type.pattern;
}

}  // namespace

constexpr std::array<FileType, kFileTypes> kJunkTypes = {{
    {".wbk", nullptr, "Temporary Works Backup Files"},
    {".bak", nullptr, kApplicationBackups},
    {".gid", nullptr, "Temporary Windows Help Data Files"},
    {".tmp", nullptr, kSetupBackups},
    {"~*.*", "~*.*", kSetupBackups},
    {".temp", nullptr, kSetupBackups},
    {"._mp", nullptr, kSetupBackups},
    {".dir", "mscreate.dir", "mscreate.dir Windows Temporary Directory Setup Information Files"},
    {".---", nullptr, "Old Setup and Application Backup Files"},
    {".syd", nullptr, kApplicationBackups},
    {".nav", nullptr, "Norton Backup Files"},
    {".old", nullptr, kApplicationBackups},
    {".mtx", "*Twain*.mtx", "Temporary Windows Twain Files"},
    {".cpy", nullptr, kApplicationBackups},
    {".db$", nullptr, "dBase Temporary Files"},
    {".db", "Thumbs.db", "Thumbs.db Temporary Folder Content Information Files"},
    {".prv", nullptr, kApplicationBackups},
    {".chk", nullptr, "Windows Checkdisk and Scandisk Files"},
    {".nu3", nullptr, "Norton Backup Files"},
    {".err", nullptr, "Application Error Log Files"},
}};

ScanPatterns scanPatterns(const std::bitset<kFileTypes>& chosen, const CustomExtensions& extensions) {
  ScanPatterns patterns;
  for (std::size_t i = 0; i < kFileTypes; ++i) {
    if (chosen[i]) patterns[i] = patternOf(kJunkTypes[i]);
  }
  for (std::size_t i = 0; i < kCustomExtensions; ++i) {
    if (!platform::trimmed(extensions[i]).empty()) patterns[kFileTypes + i] = "*." + extensions[i];
  }
  return patterns;
}

bool anyPattern(const ScanPatterns& patterns) {
  return !std::ranges::all_of(patterns, [](const std::string& pattern) { return pattern.empty(); });
}

bool isProtected(const std::string& name) {
  return contains(kProtectedInCapitals, platform::machine().environment().upperCase(name)) ||
         contains(kProtectedAsFound, name);
}

bool isKeptEmpty(std::string_view name) { return contains(kKeptEmpty, name); }

void SizeText::update(std::int32_t length) {
  if (length > kBytesPerKb) {
    number_ = platform::roundedHalfEven(static_cast<double>(length) / kBytesPerKb);
    unit_ = " Kb";
  }
  if (length < kBytesPerKb) {
    number_ = length;
    unit_ = " bytes";
  }
}

std::int64_t bytesOf(std::string_view sizeText) {
  std::int64_t number = 0;
  if (std::from_chars(sizeText.data(), sizeText.data() + sizeText.size(), number).ec != std::errc()) return 0;
  if (number < 0) return number + (std::int64_t{1} << 32);
  return sizeText.ends_with(" Kb") ? number * kBytesPerKb : number;
}

}  // namespace finder
