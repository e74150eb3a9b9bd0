#include "cleaners/mru_lists.h"

#include <string>

#include "settings/modRegistry.h"

namespace cleaners {
namespace {

// One list: a key that is deleted and created again with one value.
struct MruList {
  const char* parent;
  const char* subKey;
  const char* valueName;
  const char* type;
  const char* data;
};

constexpr const char* kExplorer = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer";
constexpr const char* kDialogs = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32";
constexpr const char* kOpenSave = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU";
constexpr const char* kPlayer = "Software\\Microsoft\\MediaPlayer\\Player";
constexpr const char* kWordOpen =
    "Software\\Microsoft\\Office\\10.0\\Common\\Open Find\\Microsoft Word\\Settings\\Open";
constexpr const char* kWordSave =
    "Software\\Microsoft\\Office\\10.0\\Common\\Open Find\\Microsoft Word\\Settings\\Save As";
constexpr const char* kSearchBar =
    "Software\\Microsoft\\Internet Explorer\\Explorer Bars\\{C4EE31F3-4768-11D2-BE5C-00A0C9A83DA1}";

constexpr MruList kMruLists[] = {
    {"Software\\WinRAR\\", "ArcHistory", "", "S", ""},
    {"Software\\WinRAR\\", "DialogEditHistory\\ExtrPath", "", "S", ""},
    {"Software\\Nico Mak Computing\\WinZip", "FileMenu", "", "S", ""},
    {"Software\\Adobe\\Acrobat Reader\\6.0\\AVGeneral", "cRecentFiles", "", "S", ""},
    {"Software\\Ahead\\Nero - Burning Rom", "Recent File List", "", "S", ""},
    {kExplorer, "RunMRU", "", "S", ""},
    {kPlayer, "RecentURLList", "", "S", ""},
    {kPlayer, "RecentFileList", "", "S", ""},
    {kSearchBar, "FilesNamedMRU", "", "S", ""},
    {kWordOpen, "File Name MRU", "Maximum Entries", "D", "10"},
    {kWordSave, "File Name MRU", "Maximum Entries", "D", "10"},
    {"Software\\Ulead Systems\\Ulead PhotoImpact\\8.5", "Recent File List", "MRU Max", "D", "6"},
    {kDialogs, "LastVisitedMRU", "MRUList", "S", ""},
    {kOpenSave, "*", "MRUList", "S", ""},  // a literal key name: the list for all types of files
    {kOpenSave, "exe", "MRUList", "S", ""},
    {kOpenSave, "RAR", "MRUList", "S", ""},
    {kOpenSave, "txt", "MRUList", "S", ""},
    {kOpenSave, "zip", "MRUList", "S", ""},
    {"Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Paint", "Recent File List", "", "S", ""},
    {"Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Wordpad", "Recent File List", "", "S", ""},
};

std::string keyPathOf(const MruList& list) {
  std::string path = list.parent;
  if (!path.ends_with('\\')) path += '\\';
  return path + list.subKey + '\\';
}

void emptyList(const MruList& list) {
  static_cast<void>(DeleteRegistryKey("HKCU", list.parent, list.subKey));
  static_cast<void>(WriteRegistryValue("HKCU", keyPathOf(list), list.valueName, list.type, list.data));
}

}  // namespace

void emptyMruLists() {
  for (const MruList& list : kMruLists) emptyList(list);
}

}  // namespace cleaners
