// Puts the pieces together: the console window on the Windows that runs.
#include <memory>

#include "console/frmFind.h"
#include "platform/win32/Win32Machine.h"
#include "platform/win32/ui/Win32Ui.h"

int main() {
  platform::win32::Win32Machine machine(std::make_unique<platform::win32::Win32Ui>());
  const platform::ScopedMachine use(machine);
  frmFind console;
  console.showModal(nullptr);
}
