// The lists that programs keep of what was used last: the addresses typed into the browser, and the documents and
// commands of common applications.
#include "console/frmFind.h"
#include "platform/Platform.h"
#include "settings/modRegistry.h"

using controls::messageBox;

namespace {

// One list: a key that is deleted and made again with one value, because some of the programs expect it.
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
    {kOpenSave, "*", "MRUList", "S", ""},  // a key of that very name: the list for all types of files
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

// A list that cannot be emptied does not keep the next ones.
void emptyList(const MruList& list) {
  static_cast<void>(DeleteRegistryKey("HKCU", list.parent, list.subKey));
  static_cast<void>(WriteRegistryValue("HKCU", keyPathOf(list), list.valueName, list.type, list.data));
}

// What `mode` asks for ahead of the deletion.
platform::Result<void> readOrWrite(const std::string& key, const std::string& text, std::int16_t mode) {
  platform::ScriptShell& shell = platform::machine().scriptShell();
  if (mode == frmFind::kReadMode) {
    const platform::Result<std::string> value = shell.regRead(key);
    if (!value) return std::unexpected(value.error());
    messageBox(*value);
  }
  if (mode == frmFind::kWriteMode) {
    const platform::Result<void> written = shell.regWrite(key, text);
    if (!written) return written;
    messageBox("\"" + key + "\\" + text + "\" has been written To the registry.", platform::kBoxInformation, "Success");
  }
  return {};
}

}  // namespace

void frmFind::bindLists() {
  bindTool(cmdMRU, &frmFind::cmdMRU_Click);
  bindTool(cmdLists, &frmFind::cmdLists_Click);
}

void frmFind::cmdMRU_Click() {
  ReadWriteDeleteRegistry("HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\TypedURLs\\", "", kDeleteMode);
}

void frmFind::ReadWriteDeleteRegistry(const std::string& registrykey, const std::string& RegistryInformation,
                                      std::int16_t ReadWriteDelete) {
  platform::Result<void> done = readOrWrite(registrykey, RegistryInformation, ReadWriteDelete);
  if (done) done = platform::machine().scriptShell().regDelete(registrykey);
  if (done) {
    messageBox("All Recent URL's Cleared", platform::kBoxInformation);
  } else if (done.error().number == platform::kScriptPathNotFound) {
    messageBox("No URL's Found", platform::kBoxInformation);
  }
}

void frmFind::cmdLists_Click() {
  for (const MruList& list : kMruLists) emptyList(list);
  messageBox("All MRU lists have been cleared", platform::kBoxInformation, "MRU Lists Cleared");
}
