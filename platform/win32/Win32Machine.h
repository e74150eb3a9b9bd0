// The Windows that the program runs on.
#pragma once

#include <memory>

#include "platform/Platform.h"
#include "platform/win32/Win32Calendar.h"
#include "platform/win32/Win32Environment.h"
#include "platform/win32/Win32FileObjects.h"
#include "platform/win32/Win32FileSystem.h"
#include "platform/win32/Win32ProfileFile.h"
#include "platform/win32/Win32Registry.h"
#include "platform/win32/Win32ScriptShell.h"
#include "platform/win32/Win32Shell.h"
#include "platform/win32/Win32UrlCache.h"
#include "platform/win32/Win32UrlHistory.h"
#include "platform/win32/Win32Version.h"

namespace platform::win32 {

class Win32Machine final : public Machine {
 public:
  // Initializes COM, and makes calls on a drive that is not ready fail instead of showing the system's message box
  // (SetErrorMode). `ui` may be null for a program without windows, which must not call ui().
  explicit Win32Machine(std::unique_ptr<Ui> ui);
  ~Win32Machine() override;
  Win32Machine(const Win32Machine&) = delete;
  Win32Machine& operator=(const Win32Machine&) = delete;

  FileSystem& files() override { return files_; }
  FileObjects& fileObjects() override { return fileObjects_; }
  Shell& shell() override { return shell_; }
  Registry& registry() override { return registry_; }
  ProfileFile& profiles() override { return profiles_; }
  ScriptShell& scriptShell() override { return scriptShell_; }
  SystemVersion& version() override { return version_; }
  Environment& environment() override { return environment_; }
  Ui& ui() override { return *ui_; }
  UrlCache& urlCache() override { return urlCache_; }
  UrlHistory& urlHistory() override { return urlHistory_; }
  Calendar& calendar() override { return calendar_; }

 private:
  // CoInitialize before all members below are created, CoUninitialize after they are destroyed.
  class ComSession {
   public:
    ComSession();
    ~ComSession();
    ComSession(const ComSession&) = delete;
    ComSession& operator=(const ComSession&) = delete;

   private:
    bool started_;
  };

  ComSession com_;
  Win32FileSystem files_;
  Win32FileObjects fileObjects_;
  Win32Shell shell_;
  Win32Registry registry_;
  Win32ProfileFile profiles_;
  Win32ScriptShell scriptShell_{registry_};
  Win32Version version_;
  Win32Environment environment_;
  std::unique_ptr<Ui> ui_;
  Win32UrlCache urlCache_;
  Win32UrlHistory urlHistory_;
  Win32Calendar calendar_;
};

}  // namespace platform::win32
