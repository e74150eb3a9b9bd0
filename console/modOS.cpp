#include "console/modOS.h"

#include "platform/Platform.h"

namespace {

constexpr std::uint32_t kFamilyWin32s = 0;
constexpr std::uint32_t kFamily95 = 1;
constexpr std::uint32_t kFamilyNt = 2;
constexpr std::uint32_t kBuildOf98SecondEdition = 2222;

std::string nameOf95Family(const platform::VersionRecord& version) {
  // The high half of this family's build number repeats the version.
  const std::uint32_t build = version.build & 0xFFFF;
  switch (version.minor) {
    case 0:
      return "Windows 95";
    case 10:
      return build == kBuildOf98SecondEdition ? "Windows 98SE" : "Windows 98";
    case 90:
      return "Windows Me";
    default:
      return "";
  }
}

std::string nameOfNt5(std::uint32_t minor) {
  switch (minor) {
    case 0:
      return "Windows 2000";
    case 1:
      return "Windows XP";
    case 2:
      return "Windows Server 2003";
    default:
      return "";
  }
}

std::string nameOfNtFamily(const platform::VersionRecord& version) {
  switch (version.major) {
    case 3:
      return "Windows NT 3.51";
    case 4:
      return "Windows NT 4.0";
    case 5:
      return nameOfNt5(version.minor);
    default:
      return "";
  }
}

}  // namespace

std::string GetWindowsVersionName() {
  platform::VersionRecord version;
  version.size = platform::kVersionRecordSize;
  version.servicePack.fill(' ');
  platform::machine().version().getVersionEx(version);
  switch (version.platformId) {
    case kFamilyWin32s:
      return "Windows 3.1";
    case kFamily95:
      return nameOf95Family(version);
    case kFamilyNt:
      return nameOfNtFamily(version);
    default:
      return "Failed";
  }
}
