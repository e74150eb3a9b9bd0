#include "tests/desktop/Input.h"

#include <cstdio>
#include <vector>

namespace desktop {
namespace {

constexpr DWORD kPollEvery = 5;        // milliseconds
constexpr DWORD kPointerSettles = 15;  // milliseconds: the window sees the pointer arrive before the button goes down
constexpr DWORD kScreenshotLimit = 10000;

// The scripts that serve screenshots answer here.
constexpr const char* kAnswerFolder = "C:\\demo\\";

// The coordinate for absolute input, which counts 65536 steps across the screen and is rounded down to pixels.
LONG absolute(LONG pixel, int screenLength) {
  constexpr LONG kSteps = 65536;
  return (pixel * kSteps + screenLength - 1) / screenLength;
}

}  // namespace

void waitUntil(const std::string& what, const std::function<bool()>& condition, DWORD limit) {
  const DWORD start = GetTickCount();
  while (!condition()) {
    if (GetTickCount() - start > limit) throw Failed("waited " + std::to_string(limit) + " ms in vain for " + what);
    Sleep(kPollEvery);
  }
}

void movePointer(POINT point) {
  waitUntil("the pointer to stay", [point] {
    SetCursorPos(point.x, point.y);
    Sleep(kPointerSettles);
    return isPointerAt(point);
  });
}

bool isPointerAt(POINT point) {
  POINT now = {};
  return GetCursorPos(&now) && now.x == point.x && now.y == point.y;
}

// All presses bear the place and the same time: neither a pointer that the system moves late, nor how busy this machine
// is, may turn them into other clicks.
void clickAt(POINT point, int times) {
  movePointer(point);
  std::vector<INPUT> inputs;
  const DWORD now = GetTickCount();
  for (int i = 0; i < times; ++i) {
    for (const DWORD change : {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}) {
      INPUT input = {};
      input.type = INPUT_MOUSE;
      input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | change;
      input.mi.dx = absolute(point.x, GetSystemMetrics(SM_CXSCREEN));
      input.mi.dy = absolute(point.y, GetSystemMetrics(SM_CYSCREEN));
      input.mi.time = now;
      inputs.push_back(input);
    }
  }
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

void pressKey(BYTE key, BYTE held) {
  if (held != 0) keybd_event(held, 0, 0, 0);
  keybd_event(key, 0, 0, 0);
  keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
  if (held != 0) keybd_event(held, 0, KEYEVENTF_KEYUP, 0);
}

void typeText(const std::string& text) {
  constexpr int kShiftBit = 0x100;
  for (const char letter : text) {
    const SHORT key = VkKeyScanA(letter);
    if (key == -1) throw Failed(std::string("no key gives the character ") + letter);
    pressKey(LOBYTE(key), (key & kShiftBit) != 0 ? VK_SHIFT : 0);
  }
}

void takeScreenshot(const std::string& name) {
  const std::string answer = kAnswerFolder + name + ".done";
  DeleteFileA(answer.c_str());
  std::printf("@screenshot %s\n", name.c_str());
  std::fflush(stdout);
  waitUntil(
      "the screenshot " + name, [&answer] { return GetFileAttributesA(answer.c_str()) != INVALID_FILE_ATTRIBUTES; },
      kScreenshotLimit);
  DeleteFileA(answer.c_str());
}

}  // namespace desktop
