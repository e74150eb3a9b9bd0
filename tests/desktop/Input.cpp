#include "tests/desktop/Input.h"

#include <cstdio>

namespace desktop {
namespace {

constexpr DWORD kPollEvery = 5;        // milliseconds
constexpr DWORD kPointerSettles = 15;  // milliseconds: the window sees the pointer arrive before the button goes down
constexpr DWORD kScreenshotLimit = 10000;

// The scripts that serve screenshots answer here.
constexpr const char* kAnswerFolder = "C:\\demo\\";

// All presses bear the same time: how busy this machine is must not tell a double click from two single ones.
void pressButton(int times) {
  const DWORD now = GetTickCount();
  for (int i = 0; i < times; ++i) {
    for (const DWORD change : {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}) {
      INPUT input = {};
      input.type = INPUT_MOUSE;
      input.mi.dwFlags = change;
      input.mi.time = now;
      SendInput(1, &input, sizeof(input));
    }
  }
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
  SetCursorPos(point.x, point.y);
  Sleep(kPointerSettles);
}

void clickAt(POINT point) {
  movePointer(point);
  pressButton(1);
}

void doubleClickAt(POINT point) {
  movePointer(point);
  pressButton(2);
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
