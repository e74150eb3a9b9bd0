// The console's button for the browser's index files, which a script deletes at the next start.
#include "console/frmFind.h"
#include "platform/Platform.h"

using controls::messageBox;
using platform::Answer;

void frmFind::bindIndexFiles() { bindTool(cmdIndex, &frmFind::cmdIndex_Click); }

void frmFind::cmdIndex_Click() {
  ReadWriteDeleteRegistry1("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce\\",
                           platform::machine().environment().programFolder() + "\\delindex.cmd", kWriteMode);
}

void frmFind::ReadWriteDeleteRegistry1(const std::string& registrykey, const std::string& RegistryInformation,
                                       std::int16_t ReadWriteDelete) {
  const Answer answer = messageBox(
      "Deleting index.dat files requires that you restart your system.\r\n"
      "Would you like to schedule this event for next time you restart?",
      platform::kBoxAsk, "Index.dat File Deletion");
  if (answer == Answer::kNo || ReadWriteDelete != kWriteMode) return;
  const platform::Result<void> written = platform::machine().scriptShell().regWrite(registrykey, RegistryInformation);
  if (!written) return reportUnhandled(written.error());
  messageBox("All relevant index.dat files will be deleted on next system restart", platform::kBoxInformation,
             "Index.dat Files");
}

void frmFind::ReadWriteDeleteRegistry2(const std::string& registrykey, std::string& RegistryInformation,
                                       std::int16_t ReadWriteDelete) {
  if (ReadWriteDelete != kReadMode) return;
  const platform::Result<std::string> value = platform::machine().scriptShell().regRead(registrykey);
  if (value) RegistryInformation = *value;
}
