// What the program cannot do without administrator rights.
#pragma once

#include <string>

// A line that says that the program runs without administrator rights and which tools will not work; empty when it has
// them. Delete Temps, the scans and the shredder are not named: they work on what belongs to the user.
std::string rightsNotice();
