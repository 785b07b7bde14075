// Memory that runs out at a chosen allocation; for programs linked with
// -Wl,--wrap=malloc,--wrap=calloc,--wrap=realloc,--wrap=free.
#pragma once

// Allocations count from 1 from here on; the one with the number `failing` returns null, and
// with `lasting` all after it.  0: none fails.
void start_counting(int failing, bool lasting);

// Stops counting and failing.  How many allocations there were, and how many blocks are held
// that were not held before.
struct Counted {
  int allocations;
  int held;
};
Counted stop_counting();
