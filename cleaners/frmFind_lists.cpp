// The console's cleaners for the addresses typed into the browser and for the lists of common applications.
#include "cleaners/mru_lists.h"
#include "console/frmFind.h"
#include "platform/Platform.h"

using controls::messageBox;

namespace {

// The part of `mode` before the deletion.
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
  cleaners::emptyMruLists();
  messageBox("All MRU lists have been cleared", platform::kBoxInformation, "MRU Lists Cleared");
}
