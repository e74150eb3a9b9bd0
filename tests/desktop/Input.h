// What a person has at hand: patience, the mouse and the keyboard. Input goes through the system's own queue to
// whatever window is there, not to a window of the caller's choice.
#pragma once

#include <windows.h>

#include <functional>
#include <stdexcept>
#include <string>

namespace desktop {

// A step did not come out as expected; the text says which and what was there instead. Nothing goes on after it.
class Failed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Milliseconds that one reaction of the program may take.
inline constexpr DWORD kPatience = 5000;

// Returns as soon as `condition` holds; throws Failed, naming `what` was waited for, after `limit` milliseconds.
void waitUntil(const std::string& what, const std::function<bool()>& condition, DWORD limit = kPatience);

// Screen coordinates. Moves the pointer there; the button is pressed and released there, twice for a double click.
void movePointer(POINT point);
bool isPointerAt(POINT point);
void clickAt(POINT point, int times = 1);

// Presses and releases a key (VK_...), with `held` pressed meanwhile when it is not 0.
void pressKey(BYTE key, BYTE held = 0);
// Types a text of the keyboard's own characters.
void typeText(const std::string& text);

// Asks the script around the test program for a picture of the whole screen, as build/.../NAME.png (letters, digits,
// '-', '_'), and waits until it is taken.
void takeScreenshot(const std::string& name);

}  // namespace desktop
