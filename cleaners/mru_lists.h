// The lists of what common applications used last.
#pragma once

namespace cleaners {

// Deletes the key of each known list and creates it again with the one value that its application expects. A list that
// cannot be emptied does not stop the others.
void emptyMruLists();

}  // namespace cleaners
