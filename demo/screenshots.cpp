// Opens every window of the program in its states and has a picture taken of each; for scripts/screenshots.sh.
// C:\Sample must hold the sample files.
#include <cstdio>

#include "driver/Driver.h"

using namespace desktop;  // NOLINT(google-build-using-namespace): this file is a script in the driver's terms

namespace {

class Screenshots : Program {
 public:
  void take() {
    picture("console");
    console().control("Select All", ".err").click();
    console().openFolder("Sample");
    use("Scan");
    waitForResults("Results: ");
    for (const char* file : {"Documents\\budget.bak", "Help\\manual.gid", "Pictures\\Thumbs.db"}) {
      junk().flip(std::string("C:\\Sample\\") + file);
    }
    picture("console-results");
    use("Find 0 Byte Files", {{"Warning!"}});
    waitForResults("Results: ");
    picture("console-zero-bytes");
    cachePage("http://sample.example/index.html", {});
    use("IE Cache/Cookies");
    waitUntil("the cache page", [this] { return console().list("Internet cache entries").rowCount() > 0; });
    picture("console-cache");
    modal("Custom Ext.", "Custom File Extensions", "custom-extensions", "Cancel");
    setNumber("HKLM\\SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Memory Management", "ClearPageFileAtShutdown",
              0);
    modal("Clear Swap File", "Cear Pagfile", "pagefile", "Cancel");
    setNumber("HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore", "DisableSR", 0);
    modal("System Restore", "Toggle System Restore", "restore", "Cancel");
    use("Shredder");
    const Window shredder = window("Scrubhaven Pro - Shredder");
    shredder.control("Add Folder").click();
    const Window picker = window("Add folder contents");
    picker.openFolder("Sample");
    picker.openFolder("Documents");
    picture("add-folder", picker);
    picker.closeWith("OK");
    picture("shredder", shredder);
    shredder.closeWith("Close");
    waitForConsole();
    use("Close");
    waitForEnd();
  }

 private:
  // The place of the window on the screen goes before the request, so that the script can cut it out.
  void picture(const std::string& name) { picture(name, console()); }
  static void picture(const std::string& name, const Control& shown) {
    constexpr DWORD kPainted = 600;  // milliseconds until tooltips have gone and everything is drawn
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
    Sleep(kPainted);
    const RECT place = shown.place();
    std::printf("@place %s %ldx%ld+%ld+%ld\n", name.c_str(), place.right - place.left, place.bottom - place.top,
                place.left, place.top);
    takeScreenshot(name);
  }

  void modal(const std::string& tool, const std::string& title, const std::string& name, const std::string& close) {
    use(tool);
    const Window shown = window(title);
    picture(name, shown);
    shown.closeWith(close);
    waitForConsole();
  }
};

}  // namespace

int main() {
  try {
    Screenshots().take();
  } catch (const std::exception& failure) {
    std::printf("FAILED: %s\n", failure.what());
    return 1;
  }
  return 0;
}
