#include "console/help_topics.h"

#include <algorithm>

std::string helpTopicOf(std::string_view name) {
  const std::span<const HelpTopic> topics = helpTopics();
  // A list's name may end in a number too.
  const auto withoutNumber = name.substr(0, name.find_last_not_of("0123456789") + 1);
  for (const std::string_view key : {name, withoutNumber}) {
    const auto found = std::ranges::find(topics, key, &HelpTopic::name);
    if (found != topics.end()) return std::string(found->file);
  }
  return std::string(topics.front().file);
}
