#include "platform/win32/ui/DroppedFiles.h"

#include "platform/win32/CodePage.h"
#include "platform/win32/RunTimeBinding.h"

namespace platform::win32 {
namespace {

std::string pathOf(HDROP drop, UINT index) {
  // Windows 95 has no such function.
  static const auto queryWide = boundAtRunTime<decltype(&DragQueryFileW)>("shell32.dll", "DragQueryFileW");
  if (hasWideCalls() && queryWide != nullptr) {
    const auto query = [=](UINT size, wchar_t* out) { return queryWide(drop, index, out, size); };
    return exactPath(pathFrom<wchar_t>(query)).value_or("");
  }
  const auto query = [=](UINT size, char* out) { return DragQueryFileA(drop, index, out, size); };
  return reachablePath(pathFrom<char>(query));
}

}  // namespace

std::vector<std::string> droppedPaths(HDROP drop) {
  constexpr UINT kCount = 0xFFFFFFFF;
  std::vector<std::string> paths;
  const UINT count = DragQueryFileA(drop, kCount, nullptr, 0);
  for (UINT i = 0; i < count; ++i) paths.push_back(pathOf(drop, i));
  DragFinish(drop);
  return paths;
}

}  // namespace platform::win32
