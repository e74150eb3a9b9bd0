// What every window must keep, at any size.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "controls/Form.h"
#include "controls/Frame.h"

// A screen with the usual dialog font.
struct FixedMetrics : controls::Metrics {
  int pixelsX(int units) const override { return units * 6 / 4; }
  int pixelsY(int units) const override { return units * 13 / 8; }
  int textWidth(const std::string& text) const override { return static_cast<int>(text.size()) * 6; }
};

// Every control stands in the tree once, in the window, in its frame, and over no other control but those that share
// its place on purpose. Alt and a letter reach one control, and the letter is one of its caption.
inline void expectSoundWindow(controls::Form& form, const std::set<const controls::Control*>& sharing = {}) {
  const FixedMetrics metrics;
  const controls::Box box = form.layout();
  const controls::Size least = controls::leastSize(box, metrics);
  std::multiset<const controls::Control*> placed;
  for (const controls::Control* control : controls::tabOrder(box)) placed.insert(control);
  EXPECT_EQ(placed, std::multiset<const controls::Control*>(form.controls().begin(), form.controls().end()));

  for (const controls::Size size : {controls::Size{1, 1}, controls::Size{1600, 1200}}) {
    const controls::Places places = controls::arrange(box, metrics, size);
    const controls::Rect window = {-1, -1, std::max(size.width, least.width) + 2,
                                   std::max(size.height, least.height) + 2};
    for (const auto& [a, ra] : places) {
      const controls::Rect& around = a->frame() == nullptr ? window : places.at(a->frame());
      EXPECT_TRUE(ra.x > around.x && ra.right() < around.right() && ra.y > around.y && ra.bottom() < around.bottom())
          << a->name() << " sticks out";
      for (const auto& [b, rb] : places) {
        if (a == b || a->kind() == controls::Kind::kFrame || b->kind() == controls::Kind::kFrame) continue;
        if (sharing.contains(a) && sharing.contains(b)) continue;
        const bool apart = ra.right() <= rb.x || rb.right() <= ra.x || ra.bottom() <= rb.y || rb.bottom() <= ra.y;
        EXPECT_TRUE(apart) << a->name() << " overlaps " << b->name();
      }
    }
  }

  std::set<char> used;
  for (const controls::Control* control : form.controls()) {
    const char letter = control->mnemonic();
    if (letter == 0) continue;
    EXPECT_TRUE(used.insert(letter).second) << control->name();
    const auto isLetter = [letter](char c) { return c == letter || c == letter - 'A' + 'a'; };
    EXPECT_TRUE(std::ranges::any_of(control->caption(), isLetter)) << control->name();
  }
}
