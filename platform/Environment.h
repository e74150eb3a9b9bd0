// The process's environment: the clock, the program's folder, variables, the code page.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

class Environment {
 public:
  virtual ~Environment() = default;

  // GetTickCount. Milliseconds since the machine started; wraps round after 49.7 days.
  virtual std::uint32_t getTickCount() = 0;
  // The folder that the program was started from, without a closing backslash unless it is a drive's root.
  // GetModuleFileNameW, GetModuleFileNameA.
  virtual std::string programFolder() = 0;
  // The Windows folder, without a closing backslash unless it is a root. GetWindowsDirectoryW,
  // GetWindowsDirectoryA.
  virtual std::string windowsFolder() = 0;
  // The value of the variable `name`, whose case does not matter; empty when it is empty or missing, and when the code
  // page lacks one of its characters. GetEnvironmentVariableW, GetEnvironmentVariableA.
  virtual std::string getEnvironmentVariable(const std::string& name) = 0;
  // The text that the program carries as the resource `name` (RCDATA); empty when there is none. FindResourceA,
  // LoadResource.
  virtual std::string resourceText(const std::string& name) = 0;
  // `text` in upper case by the rules of the machine's code page. CharUpperBuffA.
  virtual std::string upperCase(std::string_view text) = 0;
  // Whether the program may change what belongs to the whole machine: its process is a member of the Administrators
  // group and may use that (a program that an administrator has not confirmed on Vista and later may not). True where a
  // system has no rights, as the Windows 95 family. OpenProcessToken, GetTokenInformation.
  virtual bool isAdministrator() = 0;

  // Today's date in the user's short date format ("21/11/2026"). GetDateFormatA.
  virtual std::string dateText() = 0;
  // The time of day in the user's time format ("12:34:56"). GetTimeFormatA.
  virtual std::string timeText() = 0;
  // Seconds since midnight, with fractions. GetLocalTime.
  virtual float secondsSinceMidnight() = 0;
  // The next number of the uniform generator, from 0 up to but not including 1. Nobody seeds it: every run of the
  // program sees the same numbers (UniformSequence).
  virtual double nextUniform() = 0;
};

}  // namespace platform
