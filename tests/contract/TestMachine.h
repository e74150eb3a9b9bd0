// What the contract tests need from a machine besides its services: a place to work in, and a way to set up and to look
// at things that does not use the interfaces under test. Each machine has its own implementation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Platform.h"

namespace contract {

// A machine with one empty working folder. Paths are full Windows paths. Helpers that cannot do what they are asked
// end the test program: a contract test that could not be prepared must not look like one that passed.
class TestMachine {
 public:
  virtual ~TestMachine() = default;  // removes the working folder with all that is in it

  // The machine under test.
  virtual platform::Machine& machine() = 0;

  // The working folder, without a closing backslash. It exists and is empty when the test machine is made.
  static std::string root() { return "C:\\contract"; }
  // The same on another drive.
  static std::string onOtherDrive() { return "D:\\contract"; }
  // The working key below HKEY_CURRENT_USER. It does not exist when the test machine is made, and is removed with it.
  static std::string keyRoot() { return "Software\\Contract"; }

  // Makes a folder and its missing parents.
  virtual void makeFolder(const std::string& path) = 0;
  // Makes a file with these bytes, and its missing parents.
  virtual void makeFile(const std::string& path, const std::string& bytes = "") = 0;
  // Makes a file of `size` bytes (over 4 GiB too) that takes no room for them: sparse, or with a length only set.
  virtual void makeLongFile(const std::string& path, std::uint64_t size) = 0;
  // Sets the attribute bits read-only, hidden, system, archive of a file, or hidden and system of a folder.
  virtual void setAttributes(const std::string& path, std::uint32_t attributes) = 0;

  // The bytes of a file (a small one) that nobody has open without sharing.
  virtual std::string readBack(const std::string& path) const = 0;
  // The names in a folder, without "." and "..", sorted bytewise.
  virtual std::vector<std::string> namesIn(const std::string& folder) const = 0;

  // Makes the folder the process's current one, and its drive the current drive, until the test machine's end.
  virtual void setCurrentFolder(const std::string& folder) = 0;

  // How many items lie in the Recycle Bin now. SHQueryRecycleBinA.
  virtual std::size_t recycledItems() const = 0;

  // Makes a link to the folder `target`, and its missing parents. Both are paths below the working folder, without
  // blanks.
  virtual void makeFolderLink(const std::string& name, const std::string& target) = 0;
  // Whether a program can remove a link. Where the system can only follow links, it cannot.
  virtual bool letsLinksGo() const = 0;

  // Puts a page with a file of its own into the Internet cache, where it stays.
  virtual void cachePage(const std::string& url, const platform::FileTime& expires) = 0;
};

// A new test machine with a fresh working folder. One definition is linked into each test program.
std::unique_ptr<TestMachine> makeTestMachine();

}  // namespace contract
