// Which help topic belongs to a control or window (help/topics.txt).
#pragma once

#include <span>
#include <string>
#include <string_view>

// The name of a control of the console or of a window, and the file of its topic.
struct HelpTopic {
  std::string_view name;
  std::string_view file;
};

// In the order of help/topics.txt; the first one is the console's own.
std::span<const HelpTopic> helpTopics();

// The topic of the control or window of that name ("cmdZero", "Check7", "frmMain"); the console's for any other name.
std::string helpTopicOf(std::string_view name);
