// The scripting host's registry methods ("WScript.Shell"). A path begins with the name of a root ("HKEY_CURRENT_USER\")
// and names a value; one that ends in a backslash names a key. The object is created anew for each call.
#pragma once

#include <string>

#include "platform/RuntimeError.h"

namespace platform {

// The failure for a path that names nothing.
inline constexpr std::int32_t kScriptPathNotFound = static_cast<std::int32_t>(0x80070002);

// Failures carry the object's own code (kScriptPathNotFound; the system's code in its low word otherwise), or 70 when
// access is denied.
class ScriptShell {
 public:
  virtual ~ScriptShell() = default;

  // RegRead. The value, of a key its default value, as text: a number in decimal. Fails with 13 when the value is of a
  // type that is no text and no number.
  virtual Result<std::string> regRead(const std::string& path) = 0;
  // RegWrite. Stores a text as the value, of a key as its default value; makes missing keys.
  virtual Result<void> regWrite(const std::string& path, const std::string& text) = 0;
  // RegDelete. Deletes the value, or the key with all its values. A key with subkeys is deleted only where the registry
  // deletes such keys.
  virtual Result<void> regDelete(const std::string& path) = 0;
};

}  // namespace platform
